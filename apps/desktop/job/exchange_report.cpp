#include "apps/desktop/job/exchange_report.h"

#include "apps/desktop/qt_text.h"

namespace {

std::optional<JobNode> Named(const std::string& name, HostDocument& document) {
  const JobNode found = FindNamed(document, name);
  return found.kind == NodeKind::kRoot ? std::nullopt : std::optional(found);
}

std::optional<JobNode> QuotedObject(const std::string& text, HostDocument& document) {
  for (std::size_t from = text.find('"'); from != std::string::npos; from = text.find('"', from)) {
    const std::size_t to = text.find('"', from + 1);
    if (to == std::string::npos) break;
    if (const auto found = Named(text.substr(from + 1, to - from - 1), document)) return found;
    from = to + 1;
  }
  return std::nullopt;
}

}  // namespace

void ExchangeReport::Warn(const std::string& text, HostDocument& document) {
  lines.push_back({ToQt(text), true, QuotedObject(text, document)});
}

void ExchangeReport::Warn(const std::string& text, const std::string& about,
                          HostDocument& document) {
  lines.push_back({ToQt(text), true, Named(about, document)});
}

QString ExchangeReport::AsText() const {
  QString text = title + '\n';
  for (const ReportLine& line : lines) text += line.text + '\n';
  return text;
}
