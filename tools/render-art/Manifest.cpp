#include "Manifest.h"

#include <QFile>
#include <QStringList>

#include <stdexcept>

namespace hearthbook {

namespace {

void applyOption(Drawing& drawing, const QString& option) {
  const QString name = option.section(u'=', 0, 0);
  const QString value = option.section(u'=', 1);
  if (name == QStringLiteral("quality"))
    drawing.quality = value.toInt();
  else if (name == QStringLiteral("orientation"))
    drawing.camera.orientation = value.toInt();
  else if (name == QStringLiteral("taken"))
    drawing.camera.taken = QString(value).replace(u'T', u' ').toLatin1();
  else if (name == QStringLiteral("clear"))
    drawing.clear = true;
  else if (name == QStringLiteral("mirrored"))
    drawing.mirrored = true;
  else
    throw std::runtime_error("unknown option " + option.toStdString());
}

Drawing readLine(const QString& line) {
  const QStringList words = line.split(u' ', Qt::SkipEmptyParts);
  const QStringList sides = words.value(2).split(u'x');
  if (words.size() < 3 || sides.size() != 2)
    throw std::runtime_error("cannot read the line: " + line.toStdString());
  Drawing drawing;
  drawing.output = QString(words[0]).replace(QStringLiteral("%20"), QStringLiteral(" "));
  drawing.source = words[1];
  drawing.size = QSize(sides[0].toInt(), sides[1].toInt());
  for (const QString& option : words.mid(3))
    applyOption(drawing, option);
  return drawing;
}

} // namespace

QList<Drawing> readManifest(const QString& file) {
  QFile in(file);
  if (!in.open(QIODevice::ReadOnly | QIODevice::Text))
    throw std::runtime_error("cannot open " + file.toStdString());
  QList<Drawing> drawings;
  while (!in.atEnd()) {
    const QString line = QString::fromUtf8(in.readLine()).trimmed();
    if (!line.isEmpty() && !line.startsWith(u'#'))
      drawings.append(readLine(line));
  }
  return drawings;
}

} // namespace hearthbook
