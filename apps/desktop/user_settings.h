// What the user keeps from one run to the next, whatever the job.
#pragma once

#include <QStringList>
#include <string>

/// Jobs that were open, the last one first.
QStringList RecentJobs();
void AddRecentJob(const std::string& path);

/// The language that was chosen; empty when none was.
std::string ChosenLanguage();
void ChooseLanguage(const std::string& language);
