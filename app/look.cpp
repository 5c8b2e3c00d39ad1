#include "app/look.h"

#include <QApplication>
#include <QHash>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QPainter>
#include <QProxyStyle>
#include <QStandardPaths>
#include <QStyleOption>
#include <QTranslator>

#include <span>

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

QPalette darkPalette() {
  const QColor window(0x25, 0x2a, 0x31);
  const QColor base(0x1b, 0x1f, 0x25);
  const QColor ink(0xe6, 0xe9, 0xed);
  const QColor pale(0x7d, 0x87, 0x92);
  const QColor accent(0x3a, 0x8f, 0xd6);
  const QColor hint(0x36, 0x3d, 0x47);
  QPalette palette(ink, QColor(0x30, 0x37, 0x40), QColor(0x4a, 0x53, 0x5e), QColor(0x12, 0x15, 0x19), QColor(0x43, 0x4b, 0x55),
                   ink, Qt::white, base, window);
  palette.setColor(QPalette::Midlight, QColor(0x3a, 0x42, 0x4c));
  palette.setColor(QPalette::AlternateBase, QColor(0x20, 0x24, 0x2a));
  palette.setColor(QPalette::Highlight, accent);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, accent);
  palette.setColor(QPalette::PlaceholderText, pale);
  palette.setColor(QPalette::ToolTipBase, hint);
  palette.setColor(QPalette::ToolTipText, ink);
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, pale);
  palette.setColor(QPalette::Disabled, QPalette::Base, window);
  return palette;
}

/// What the toolkit's own Turkish translation leaves in English.
class MissingTexts : public QTranslator {
 public:
  using QTranslator::QTranslator;

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* sourceText, const char*, int) const override {
    if (QByteArrayView(context) != "QAbstractFileIconProvider" && QByteArrayView(context) != "QFileIconProvider") return {};
    static const QHash<QByteArray, QString> texts{
        {"Drive", u"Sürücü"_s},       {"File", u"Dosya"_s},   {"%1 File", u"%1 dosyası"_s}, {"File Folder", u"Klasör"_s},
        {"Folder", u"Klasör"_s},      {"Alias", u"Kısayol"_s}, {"Shortcut", u"Kısayol"_s},  {"Unknown", u"Bilinmeyen"_s}};
    return texts.value(sourceText);
  }
};

/// Fusion in colours of ours, with icons of disabled commands as pale as their captions, and frames that are seen on dark colours.
class Style : public QProxyStyle {
 public:
  explicit Style(QPalette colors) : QProxyStyle(u"Fusion"_s), colors_(std::move(colors)) {}

  using QProxyStyle::polish;
  /// Colours that are told to the application instead would be copied for every widget, and a picture of every button kept for
  /// each of them.
  void polish(QPalette& palette) override { palette = colors_.resolve(palette); }

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data) const override {
    if (hint == SH_EtchDisabledText) return 0;
    // Fusion's lines between cells cannot be told from dark cells.
    if (hint == SH_Table_GridLineColor && option != nullptr && isDark(option->palette)) return int(option->palette.color(QPalette::Midlight).rgba());
    return QProxyStyle::styleHint(hint, option, widget, data);
  }

  /// Its frames and its marks that are not set would be nearly as dark as what they stand on.
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isMark = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck || element == PE_IndicatorRadioButton;
    if ((!isMark && element != PE_PanelMenu) || !isDark(option->palette)) return;
    painter->save();
    painter->setPen(isMark ? QPen(option->palette.color(QPalette::PlaceholderText), 1.5) : QPen(option->palette.color(QPalette::Mid).lighter(130)));
    painter->setBrush(Qt::NoBrush);
    if (element == PE_IndicatorRadioButton) {
      painter->setRenderHint(QPainter::Antialiasing);
      painter->drawEllipse(QRectF(option->rect).adjusted(1, 1, -1, -1));
    } else {
      painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    }
    painter->restore();
  }

  QPixmap generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const override {
    if (mode != QIcon::Disabled) return QProxyStyle::generatedIconPixmap(mode, pixmap, option);
    // Light icons on dark colours pale by letting more of these through.
    const Pale& to = isDark(colors_) ? OnDark : OnLight;
    QImage pale = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < pale.height(); ++y)
      for (QRgb& pixel : std::span(reinterpret_cast<QRgb*>(pale.scanLine(y)), size_t(pale.width()))) {
        const int gray = to.darkest + qGray(pixel) * (255 - to.darkest) / 255;
        pixel = qRgba(gray, gray, gray, qAlpha(pixel) * to.opacity / 100);
      }
    return QPixmap::fromImage(pale);
  }

 private:
  static bool isDark(const QPalette& palette) { return palette.color(QPalette::Window).lightness() <= DarkWindow; }

  static constexpr int DarkWindow = 127;
  /// What becomes of a disabled command's icon.
  struct Pale {
    int darkest;  ///< gray
    int opacity;  ///< percent
  };
  static constexpr Pale OnLight{110, 67};
  static constexpr Pale OnDark{160, 40};

  QPalette colors_;
};

/// The first of the faces that the computer has; the system's own otherwise.
QFont interfaceFont() {
  QFont font;
  font.setFamilies({u"Segoe UI"_s, u"Open Sans"_s, u"Noto Sans"_s, u"DejaVu Sans"_s});
  font.setPointSizeF(FontPoints);
  return font;
}
}  // namespace

LookColors wantedColors() { return qEnvironmentVariable("KVTK_LOOK") == "dark"_L1 ? LookColors::Dark : LookColors::Light; }

void applyLook(QApplication& application, LookColors colors) {
  const bool dark = colors == LookColors::Dark;
  QApplication::setStyle(new Style(dark ? darkPalette() : lightPalette()));
  QApplication::setFont(interfaceFont());
  // Where the platform knows of no icon folders, the usual ones are searched.
  QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() + QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, u"icons"_s,
                                                                                   QStandardPaths::LocateDirectory));
  QIcon::setThemeName(dark ? u"breeze-dark"_s : u"breeze"_s);  // the same icons on every desktop, and without one
  QIcon::setFallbackThemeName(u"breeze"_s);
  QLocale::setDefault(QLocale(QLocale::Turkish, QLocale::Turkey));
  auto* translator = new QTranslator(&application);
  if (translator->load(u"qtbase_tr"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(translator);
  QCoreApplication::installTranslator(new MissingTexts(&application));
}
