#pragma once

#include <QString>

#include <ostream>

/// Lets GoogleTest print Qt's texts as texts.
inline void PrintTo(const QString& text, std::ostream* stream) {
  *stream << '"' << text.toStdString() << '"';
}
