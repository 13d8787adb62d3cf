// What the user keeps from one run to the next, whatever the job.
#pragma once

#include <QMainWindow>
#include <QStringList>
#include <optional>
#include <string>

/// Jobs that were open, the last one first.
QStringList RecentJobs();
void AddRecentJob(const std::string& path);

/// The language that was chosen.
std::optional<std::string> ChosenLanguage();
void ChooseLanguage(const std::string& language);

/// The unit of angles that was chosen last, as a position in the host's list; it is for new jobs.
std::optional<int> ChosenAngleUnit();
void ChooseAngleUnit(int unit);

/// The size of the window and how it is divided.
void KeepWindow(const QMainWindow& window);
void RestoreWindow(QMainWindow& window);
