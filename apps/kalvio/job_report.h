// What a job holds, as text for people.
#pragma once

class HostDocument;

/// Prints it on standard output. `all`: lists in full; else a long list is cut, and tells by how
/// much.
void ReportJob(HostDocument& document, bool all);
