// Jobs on disk: a folder with a database and a settings file, or one JSON document.
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

class HostDocument;

/// Why a job could not be read or written: one line for people, with the name of the file.
class JobError : public std::runtime_error {
 public:
  explicit JobError(const std::string& message) : std::runtime_error(message) {}
};

/// A JSON job with a key that does not belong there.
class JobKeyError : public JobError {
 public:
  using JobError::JobError;
};

/// Told now and then how many of all points have been read or written.
using JobProgress = std::function<void(std::uint64_t done, std::uint64_t total)>;

/// True for a path that names a JSON job (it ends in ".json", letter case ignored); any other is a
/// job folder.
bool IsJsonJob(const std::string& path);

/// The job's folder: the folder itself, or the one that the JSON document lies in ("." for a bare
/// name).
std::string JobFolderOf(const std::string& path);

/// Fills `document`, which must be empty. A folder without a database is an empty job. Throws
/// JobError.
void LoadJob(const std::string& path, HostDocument& document, const JobProgress& progress = {});

/// Writes the whole job in place of what was there; a folder is made when it is missing. A save
/// that fails or is cut off leaves the previous job. Throws JobError.
void SaveJob(const std::string& path, HostDocument& document, const JobProgress& progress = {});

/// The JSON document of a job as SaveJob writes it, into `text` bit by bit: `write` is called with
/// pieces of it.
void WriteJobJson(HostDocument& document, const std::function<void(std::string_view)>& write);

/// The database and the settings file of a job folder.
inline constexpr const char* kJobDatabaseName = "job.kalvio";
inline constexpr const char* kJobSettingsName = "settings.ini";
