// How DWG files hold numbers, references and whole records.
#include <bit>

#include "host/cad/dwg/bit_writer.h"
#include "host/cad/dwg/crc.h"
#include "host/cad/dwg/field_reader.h"
#include "host/cad/dwg/field_writer.h"
#include "host/cad/dwg/object_map.h"
#include "host/cad/dwg/record_writer.h"
#include "platform/output_file.h"
#include "support/temporary_folder.h"
#include "support/text_files.h"

namespace {

using namespace dwg;

std::string Hex(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    for (const int shift : {4, 0}) {
      text += "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> shift & 0xF];
    }
  }
  return text;
}

std::vector<std::uint8_t> Bytes(std::string_view hex) {
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i < hex.size(); i += 2) {
    unsigned byte = 0;
    for (const char c : hex.substr(i, 2)) {
      byte = byte * 16 + static_cast<unsigned>(c <= '9' ? c - '0' : c - 'A' + 10);
    }
    bytes.push_back(static_cast<std::uint8_t>(byte));
  }
  bytes.resize(bytes.size() + BitReader::kSlack);
  return bytes;
}

/// Writes values, and reads them back with the same functions.
class DwgCodes : public testing::Test {
 protected:
  FieldReader Reader(Version version = Version::k2000) {
    bytes_.assign(bits.Bytes().begin(), bits.Bytes().end());
    bytes_.resize(bytes_.size() + BitReader::kSlack);
    return {BitReader(bytes_.data(), 0, bits.Position()), version};
  }
  BitWriter bits;
  FieldWriter fields{bits, Version::k2000};

 private:
  std::vector<std::uint8_t> bytes_;
};

TEST_F(DwgCodes, Shorts) {
  fields.Shorts({0, 256, 15, 257, 0xFFFF});
  EXPECT_EQ(Hex(bits.Bytes()), "B43C01013FFFC0");
  FieldReader reader = Reader();
  for (const unsigned expected : {0U, 256U, 15U, 257U, 0xFFFFU}) {
    std::uint16_t value = 1;
    reader.Short(value);
    EXPECT_EQ(value, expected);
  }
}

TEST_F(DwgCodes, Longs) {
  fields.Longs({0, 15, 257, 0xFFFFFFFF});
  EXPECT_EQ(Hex(bits.Bytes()), "90F004040000FFFFFFFF");
  FieldReader reader = Reader();
  for (const unsigned expected : {0U, 15U, 257U, 0xFFFFFFFFU}) {
    std::uint32_t value = 1;
    reader.Long(value);
    EXPECT_EQ(value, expected);
  }
}

TEST_F(DwgCodes, Doubles) {
  fields.Doubles({0, 1, 2.5});
  EXPECT_EQ(Hex(bits.Bytes()), "900000000000001100");
  FieldReader reader = Reader();
  for (const double expected : {0.0, 1.0, 2.5}) {
    double value = 7;
    reader.Double(value);
    EXPECT_EQ(value, expected);
  }
}

TEST_F(DwgCodes, NegativeZeroIsNoZero) {
  fields.Double(-0.0);
  EXPECT_EQ(bits.Position(), 66U);
  FieldReader reader = Reader();
  double value = 1;
  reader.Double(value);
  EXPECT_TRUE(std::signbit(value));
}

TEST_F(DwgCodes, DoublesThatAreLikeOthers) {
  const std::pair<double, double> pairs[] = {
      {1.0, 1.0}, {1.5, 1.0}, {100.25, 100.5}, {100.1, 100.2}, {100.10000000001, 100.10000000002}};
  for (const auto& [value, other] : pairs) fields.Near(value, other);
  EXPECT_EQ(Hex(bits.Bytes()), "3000000000000F83F8004000000002660666666666499A599980");
  FieldReader reader = Reader();
  for (const auto& [expected, other] : pairs) {
    double value = 0;
    reader.Near(value, other);
    EXPECT_EQ(value, expected);
  }
}

TEST_F(DwgCodes, References) {
  fields.Reference(Link::kHardPointer, 0xF);
  fields.Reference(Link::kHardOwner, 0);
  fields.Reference(Link::kSoftPointer, 0x1C1);
  fields.Reference(Link::kSoftPointer, 0x1234'5678'9ABC);
  EXPECT_EQ(Hex(bits.Bytes()), "510F304201C146123456789ABC");
  FieldReader reader = Reader();
  for (const Handle expected : {0xFULL, 0ULL, 0x1C1ULL, 0x1234'5678'9ABCULL}) {
    Handle handle = 1;
    reader.Reference(Link::kOwn, handle);
    EXPECT_EQ(handle, expected);
  }
}

TEST_F(DwgCodes, ReferencesMayCountFromTheRecord) {
  const std::uint8_t bytes[16] = {0x60, 0x80, 0xA1, 0x05, 0xC1, 0x02};
  BitReader reader(bytes, 0, 48);
  EXPECT_EQ(TakeHandle(reader, 0x100), 0x101U);
  EXPECT_EQ(TakeHandle(reader, 0x100), 0xFFU);
  EXPECT_EQ(TakeHandle(reader, 0x100), 0x105U);
  EXPECT_EQ(TakeHandle(reader, 0x100), 0xFEU);
  EXPECT_THROW(TakeHandle(reader, 0x100), Damage);
}

TEST_F(DwgCodes, ReferencesCountFromTheRecordWhereThatIsShorter) {
  fields.SetOwn(0x1234);
  for (const Handle handle : {0x1235U, 0x1233U, 0x1240U, 0x1200U, 0x2345U, 0x12U, 0U}) {
    fields.NearReference(handle);
  }
  EXPECT_EQ(Hex(bits.Bytes()), "6080A10CC134422345411240");
  bits.Clear();
  fields.SetOwn(0x21);
  for (const Handle handle : {0x20U, 0x22U, 0x30U, 1U}) fields.NearReference(handle);
  EXPECT_EQ(Hex(bits.Bytes()), "806041304101");
}

TEST_F(DwgCodes, Texts) {
  fields.Text("Abc");
  EXPECT_EQ(Hex(bits.Bytes()), "40D05898C0");
  fields.Text(std::string_view("x\0\0", 3));
  FieldReader reader = Reader();
  std::string text;
  reader.Text(text);
  EXPECT_EQ(text, "Abc");
  reader.Text(text);
  EXPECT_EQ(text, "x");
}

TEST_F(DwgCodes, NothingIsReadBehindTheEnd) {
  fields.Short(300);
  FieldReader reader = Reader();
  double value = 0;
  EXPECT_THROW(reader.RawDouble(value), Damage);
}

TEST_F(DwgCodes, CountsNeedRoom) {
  fields.Long(1'000'000);
  fields.Long(0);
  FieldReader reader = Reader();
  std::uint32_t count = 0;
  EXPECT_THROW(reader.Count(count, 1), Damage);
}

TEST(DwgChecksums, AreThoseOfOtherPrograms) {
  EXPECT_EQ(Crc(0, "123456789"), 0xBB3D);
  EXPECT_EQ(Crc(kCrcStart, "123456789"), 0x7E6C);
  EXPECT_EQ(Crc(Crc(kCrcStart, "12345"), "6789"), 0x7E6C);
}

TEST(DwgMaps, NumbersOfSevenBits) {
  const std::pair<std::int64_t, const char*> known[] = {
      {0, "00"},      {1, "01"},     {63, "3F"},     {64, "C000"},
      {-1, "41"},     {-64, "C040"}, {4610, "8224"}, {112823273, "E997E635"},
      {-1413, "854B"}};
  for (const auto& [value, hex] : known) {
    std::string bytes;
    AppendSignedModular(bytes, value);
    EXPECT_EQ(Hex(bytes), hex);
    std::string_view rest = bytes;
    EXPECT_EQ(TakeSignedModular(rest), value);
    EXPECT_TRUE(rest.empty());
  }
  std::string bytes;
  AppendModular(bytes, 127);
  AppendModular(bytes, 128);
  EXPECT_EQ(Hex(bytes), "7F8001");
  std::string_view rest = bytes;
  EXPECT_EQ(TakeModular(rest), 127U);
  EXPECT_EQ(TakeModular(rest), 128U);
}

TEST(DwgMaps, EndlessNumbersAreRefused) {
  const std::string bytes(30, '\xFF');
  std::string_view rest = bytes;
  EXPECT_THROW(TakeModular(rest), Damage);
  rest = bytes;
  EXPECT_THROW(TakeSignedModular(rest), Damage);
  rest = {};
  EXPECT_THROW(TakeModular(rest), Damage);
}

TEST(DwgMaps, AnEmptyOneIsTheMarkOfItsEnd) {
  std::string bytes;
  AppendObjectMap(bytes, {});
  EXPECT_EQ(Hex(bytes), "000201D0");
}

TEST(DwgMaps, AreReadAsTheyWereWritten) {
  std::vector<MapEntry> entries;
  for (unsigned i = 1; i < 5000; ++i) {
    entries.push_back({i * i, static_cast<std::uint32_t>(i % 2 == 0 ? i * 100'000 : 77)});
  }
  std::string bytes;
  AppendObjectMap(bytes, entries);
  bool hasWrongChecksum = false;
  EXPECT_EQ(ReadObjectMap(bytes, hasWrongChecksum), entries);
  EXPECT_FALSE(hasWrongChecksum);
  bytes[5] = static_cast<char>(bytes[5] ^ 1);
  ReadObjectMap(bytes, hasWrongChecksum);
  EXPECT_TRUE(hasWrongChecksum);
}

/// Whole records as files hold them.
class DwgRecords : public testing::Test {
 protected:
  template <class Write>
  std::string Record(Version version, const Write& write) {
    platform::OutputFile output;
    EXPECT_TRUE(output.Open(folder_.File("records")));
    FileWriter file(output);
    RecordWriter records(file, version);
    write(records);
    return Hex(output.Buffer());
  }

 private:
  TemporaryFolder folder_;
};

EntityHead HeadOf(bool hasNeighbours) {
  EntityHead head;
  head.layer = 0x100;
  head.hasNeighbours = hasNeighbours;
  head.next = hasNeighbours ? 0x10B : 0;
  return head;
}

TEST_F(DwgRecords, Point) {
  const auto write = [](RecordWriter& records) {
    EntityHead head = HeadOf(true);
    PointRecord point;
    point.at = {123456.78901234567, 7654321.0123456789, 101.23456789};
    records.Entity(kPoint, 0x10A, head, point);
  };
  EXPECT_EQ(Record(Version::k2000, write),
            "2B0046C9804000008042A53421D335A32E7C3093F9008845CA40EC325D411E03C28A40D3D65038C1018148"
            "0400B72B");
  EXPECT_EQ(Record(Version::kR14, write),
            "2B0046C08042A1080800055B19AD1973E1849FC804422E52076192EA08F01E1452069EB281531829008020"
            "30007A9B");
}

TEST_F(DwgRecords, Line) {
  const auto write = [](RecordWriter& records) {
    EntityHead head = HeadOf(false);
    LineRecord line;
    line.from = {0, 0, 1};
    line.to = {10, 20, 3};
    records.Entity(kLine, 0x10B, head, line);
  };
  EXPECT_EQ(Record(Version::k2000, write),
            "410044F9404000008042E57421D00000000000000006000000000000488000000000000000018000000000"
            "001A20000000000000781FE0000000000001081982900800120D");
  EXPECT_EQ(Record(Version::kR14, write),
            "290044C08042E1280800057B52000000000000122000000000000006880000000000000042054982900800"
            "F8C1");
}

TEST_F(DwgRecords, Layer) {
  const auto write = [](RecordWriter& records) {
    LayerRecord layer;
    layer.name = "OFF_LAYER";
    layer.isOff = true;
    layer.color = 3;
    layer.plotStyle = 0xF;
    layer.lineType = 0x16;
    records.Object(kLayer, 0x101, {2, 0, 0}, layer);
  };
  EXPECT_EQ(Record(Version::kR14, write),
            "1C004CC080406AA0000009094F46465F4C41594552C440D0408C14144580D187");
}

TEST_F(DwgRecords, LayerOfAnotherProgram) {
  std::vector<std::uint8_t> bytes =
      Bytes("1F004CEE00000000804069094F46465F4C41594552C3C80D0341023050510F51167BA8");
  constexpr std::size_t kStart = 16;   // behind the size
  constexpr std::size_t kSplit = 184;  // where the references begin
  constexpr std::size_t kHead = 10 + 32 + 24 + 2;
  FieldReader fields(BitReader(bytes.data(), kStart + kHead, kStart + kSplit),
                     BitReader(bytes.data(), kStart + kSplit, 33 * 8), Version::k2000, 0x101);
  ObjectHead head;
  LayerRecord layer;
  Data(fields, head);
  Data(fields, layer);
  EXPECT_EQ(fields.BitsLeft(), 0U);
  References(fields, head);
  References(fields, layer);
  EXPECT_LT(fields.ReferenceBitsLeft(), 8U);
  EXPECT_EQ(layer.name, "OFF_LAYER");
  EXPECT_TRUE(layer.isOff && !layer.isFrozen && !layer.isLocked);
  EXPECT_EQ(layer.color, 3);
  EXPECT_EQ(head.owner, 2U);
  EXPECT_EQ(layer.plotStyle, 0xFU);
  EXPECT_EQ(layer.lineType, 0x16U);
}

TEST_F(DwgRecords, LayerTable) {
  EXPECT_EQ(
      Record(Version::k2000,
             [](RecordWriter& records) {
               ControlRecord layers{kLayerControl, {0x10, 0x100, 0x101, 0x102, 0x103, 0x104}, {}};
               records.Object(kLayerControl, 2, {}, layers);
             }),
      "1C004C920000000040A906403021102201002201012201022201032201041E49");
}

}  // namespace
