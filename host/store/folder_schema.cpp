#include "host/store/folder_schema.h"

bool HoldsJob(const Database& database) {
  const std::int64_t application = database.WholeOf("PRAGMA application_id");
  const std::int64_t version = database.WholeOf("PRAGMA user_version");
  // The first save makes the file before there is anything in it.
  const bool isNew = application == 0 && version == 0 &&
                     database.WholeOf("SELECT count(*) FROM sqlite_schema") == 0;
  if (isNew) return false;
  if (application != kApplicationId || version < 1) database.Fail("this is no job");
  if (version > kSchemaVersion) database.Fail("a newer version of the program wrote this job");
  return true;
}

bool HoldsDesign(const Database& database) {
  return database.WholeOf("PRAGMA user_version") >= kVersionWithDesign;
}

bool HoldsDrawing(const Database& database) {
  return database.WholeOf("PRAGMA user_version") >= kVersionWithDrawing;
}

bool HoldsTable(const Database& database, const char* name) {
  return database.WholeOf(std::string("SELECT count(*) FROM sqlite_schema WHERE name = '") + name +
                          "'") != 0;
}
