// Standard output and standard error.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file_trouble.h"
#include "tdk/wstring.h"

namespace console {

/// To be called first of all. A standard stream that is closed gets a place holder, so that no file
/// of a job can take its number, and a reader that goes away becomes an error of the next write
/// instead of ending the process.
void SecureStreams();

/// Appends to standard output. A failure is remembered for FinishOutput.
void Out(std::string_view text);
/// Brings everything out. False when anything could not be written.
bool FinishOutput();
/// "standard output cannot be written: No space left on device"; after FinishOutput has failed.
std::string OutputTrouble();

/// One line on standard error, after the program's name.
void Complain(std::string_view line);
/// Text on standard error as it is.
void Err(std::string_view text);
bool IsErrorATerminal();

std::string Number(std::uint64_t value);
/// `one` for 1, else `many`, with the number in place of {1}; both translated already.
std::string Count(std::uint64_t value, const tdk::WString& one, const tdk::WString& many);

/// The error of the system in words.
std::string Reason(int error);
/// "cannot be opened: No such file or directory".
std::string InWords(const platform::FileTrouble& trouble);

}  // namespace console
