#pragma once

#include <QString>

#include <filesystem>
#include <string>
#include <string_view>

namespace hearthbook {

// The rules speak UTF-8, the windows speak QString: this is the door between them.

inline QString toQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline QString toQString(const std::string& text) { return toQString(std::string_view(text)); }
inline QString toQString(const std::filesystem::path& path) { return toQString(path.string()); }
inline QString toQString(const char* text) { return toQString(std::string_view(text)); }
inline std::string toUtf8(const QString& text) { return text.toStdString(); }
inline std::filesystem::path toPath(const QString& text) {
  return std::filesystem::path(text.toStdString());
}

} // namespace hearthbook
