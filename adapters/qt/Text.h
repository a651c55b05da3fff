// Texts between the core, which keeps UTF-8, and the toolkit.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace formwizard::adapters::qt {

inline QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string Utf8(const QString& text) { return text.toStdString(); }

}  // namespace formwizard::adapters::qt
