#include "app/look.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {
constexpr double FontPoints = 9;

QPalette lightPalette() {
  const QColor window(0xf2, 0xf4, 0xf7);
  const QColor ink(0x1f, 0x29, 0x33);
  const QColor pale(0x9a, 0xa3, 0xad);
  const QColor accent(0x1b, 0x66, 0xa8);
  QPalette palette(ink, window, Qt::white, QColor(0x12, 0x49, 0x7c), QColor(0xc9, 0xd0, 0xd8), ink, Qt::white,
                   Qt::white, window);
  palette.setColor(QPalette::Midlight, QColor(0xe3, 0xe8, 0xee));
  palette.setColor(QPalette::AlternateBase, QColor(0xf6, 0xf8, 0xfa));
  palette.setColor(QPalette::Highlight, accent);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, accent);
  palette.setColor(QPalette::PlaceholderText, pale);
  palette.setColor(QPalette::ToolTipBase, Qt::white);
  palette.setColor(QPalette::ToolTipText, ink);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, pale);
  palette.setColor(QPalette::Disabled, QPalette::Base, window);
  return palette;
}

/// The first of the faces that the computer has; the system's own otherwise.
QFont interfaceFont() {
  QFont font;
  font.setFamilies({u"Segoe UI"_s, u"Open Sans"_s, u"Noto Sans"_s, u"DejaVu Sans"_s});
  font.setPointSizeF(FontPoints);
  return font;
}
}  // namespace

void applyLook(QApplication& application) {
  QApplication::setStyle(u"Fusion"_s);
  QApplication::setPalette(lightPalette());
  QApplication::setFont(interfaceFont());
  QIcon::setThemeName(u"breeze"_s);  // the same icons on every desktop, and without one
  QIcon::setFallbackThemeName(u"breeze"_s);
  QLocale::setDefault(QLocale(QLocale::Turkish, QLocale::Turkey));
  auto* translator = new QTranslator(&application);
  if (translator->load(u"qtbase_tr"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(translator);
}
