# cmake -DINPUT=it.mo -DOUTPUT=it.cpp -DFUNCTION=ItalianCatalogue -P embed.cmake
# Turns a file into a C++ source with a function that returns its bytes.
file(READ ${INPUT} hex HEX)
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${hex}")
string(REGEX REPLACE "((0x..,){20})" "\\1\n    " bytes "${bytes}")
file(WRITE ${OUTPUT} "#include \"services/catalogues.h\"

namespace {

constexpr unsigned char kBytes[] = {
    ${bytes}};

}  // namespace

std::span<const unsigned char> ${FUNCTION}() { return kBytes; }
")
