// Renders the program's artwork: render-art MANIFEST OUTPUT_FOLDER
#include "Exif.h"
#include "Gif.h"
#include "Manifest.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSaveFile>
#include <QSvgRenderer>
#include <QTransform>

#include <cstdio>
#include <exception>
#include <stdexcept>

namespace hearthbook {

namespace {

bool hasTransparency(const Drawing& drawing) {
  return drawing.clear || drawing.output.endsWith(QStringLiteral(".png")) ||
         drawing.output.endsWith(QStringLiteral(".ico"));
}

QImage draw(const Drawing& drawing, const QString& source) {
  QSvgRenderer renderer(source);
  if (!renderer.isValid())
    throw std::runtime_error("not a drawing: " + source.toStdString());
  QImage image(drawing.size, QImage::Format_ARGB32_Premultiplied);
  image.fill(hasTransparency(drawing) ? Qt::transparent : Qt::white);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter);
  painter.end();
  if (drawing.mirrored)
    image = image.mirrored(true, false);
  return hasTransparency(drawing) ? image : image.convertToFormat(QImage::Format_RGB32);
}

/// The pixels as a camera stores them that was held as `orientation` says.
QImage asHeld(const QImage& upright, int orientation) {
  const int turn = orientation == 6 ? -90 : orientation == 8 ? 90 : orientation == 3 ? 180 : 0;
  return turn == 0 ? upright : upright.transformed(QTransform().rotate(turn));
}

QByteArray encode(const QImage& image, const Drawing& drawing) {
  const QByteArray format = QFileInfo(drawing.output).suffix().toLatin1();
  if (format == "gif")
    return toGif(image);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  const QImage stored = asHeld(image, drawing.camera.orientation);
  if (!buffer.open(QIODevice::WriteOnly) ||
      !stored.save(&buffer, format.constData(), format == "jpg" ? drawing.quality : -1))
    throw std::runtime_error("cannot encode " + drawing.output.toStdString());
  const bool fromCamera = drawing.camera.orientation != 1 || !drawing.camera.taken.isEmpty();
  return fromCamera ? withCameraData(bytes, drawing.camera) : bytes;
}

void write(const QString& file, const QByteArray& bytes) {
  QDir().mkpath(QFileInfo(file).path());
  QSaveFile out(file);
  if (!out.open(QIODevice::WriteOnly) || out.write(bytes) != bytes.size() || !out.commit())
    throw std::runtime_error("cannot write " + file.toStdString());
}

void renderAll(const QString& manifest, const QString& folder) {
  const QDir sources = QFileInfo(manifest).dir();
  for (const Drawing& drawing : readManifest(manifest)) {
    const QImage image = draw(drawing, sources.filePath(drawing.source));
    write(QDir(folder).filePath(drawing.output), encode(image, drawing));
  }
}

} // namespace

} // namespace hearthbook

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 3) {
    std::fprintf(stderr, "usage: render-art MANIFEST OUTPUT_FOLDER\n");
    return 2;
  }
  try {
    hearthbook::renderAll(arguments[1], arguments[2]);
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "render-art: %s\n", failure.what());
    return 1;
  }
  return 0;
}
