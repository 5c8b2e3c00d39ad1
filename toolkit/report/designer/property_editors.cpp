#include "toolkit/report/designer/property_editors.h"

#include "base/exceptions.h"
#include "base/guard.h"
#include "base/number_text.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/report/designer/color_button.h"
#include "toolkit/report/designer/expression_dialog.h"

#include <QApplication>
#include <QBoxLayout>
#include <QComboBox>
#include <QFile>
#include <QFontComboBox>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr double fineStep = 0.1;
constexpr int mostLetters = 1'000'000;

QBoxLayout* rowOf(QWidget* owner) {
  auto* row = new QHBoxLayout(owner);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  owner->setAutoFillBackground(true);
  return row;
}

/// A number with its range; the arrows step it, with Ctrl finely.
class NumberEdit : public PropertyEdit {
 public:
  NumberEdit(const PropertyInfo& property, QWidget* parent) : PropertyEdit(parent), property_(property), line_(new QLineEdit(this)) {
    rowOf(this)->addWidget(line_);
    setFocusProxy(line_);
    line_->installEventFilter(this);
  }
  void setValue(const std::optional<PropertyValue>& value) override {
    if (!value) return line_->clear();
    const auto* number = std::get_if<double>(&*value);
    line_->setText(number ? NumberText::fromDouble(*number) : QString::number(std::get<int>(*value)));
  }
  std::optional<PropertyValue> value() const override {
    QString text = line_->text().trimmed();
    if (text.endsWith(u"mm"_s)) text.chop(2);
    if (text.trimmed().isEmpty()) return {};
    const auto number = NumberText::toDouble(text.trimmed());
    if (!number) throw EConvertError(u"“%1” bir sayı değil"_s.arg(text.trimmed()));
    return propertyFromText(property_, QString::number(*number, 'g', QLocale::FloatingPointShortest));
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    bool isUsed = false;
    guarded(this, [&] {
      if (event->type() != QEvent::KeyPress) return;
      const auto* key = static_cast<QKeyEvent*>(event);
      if (key->key() != Qt::Key_Up && key->key() != Qt::Key_Down) return;
      isUsed = true;
      const bool isFine = property_.type == PropertyType::Millimetres && (key->modifiers() & Qt::ControlModifier);
      const double step = (isFine ? fineStep : 1) * (key->key() == Qt::Key_Up ? 1 : -1);
      const double now = NumberText::toDouble(line_->text()).value_or(0);
      line_->setText(NumberText::fromDouble(std::clamp(std::round((now + step) * 100) / 100, property_.least, property_.most)));
      line_->selectAll();
    });
    return isUsed || PropertyEdit::eventFilter(watched, event);
  }

 private:
  const PropertyInfo& property_;
  QLineEdit* line_;
};

/// A line of text; a button opens the larger one, with the list of names and what comes out.
class TextEditLine : public PropertyEdit {
 public:
  TextEditLine(const PropertyInfo& property, const DesignSample& sample, QWidget* parent)
      : PropertyEdit(parent), property_(property), line_(new QLineEdit(this)) {
    QBoxLayout* row = rowOf(this);
    row->addWidget(line_, 1);
    line_->setMaxLength(mostLetters);
    setFocusProxy(line_);
    if (property.type != PropertyType::Expression && !property.isContent) return;
    auto* more = new QToolButton(this);
    more->setText(u"…"_s);
    more->setAccessibleName(u"Geniş yaz"_s);
    more->setToolTip(u"Geniş yaz; adların ve işlevlerin listesiyle"_s);
    row->addWidget(more);
    connectGuarded(more, &QToolButton::clicked, this, [this, &sample] {
      const auto kind = property_.type == PropertyType::Expression ? ExpressionDialog::Kind::Expression : ExpressionDialog::Kind::Text;
      const QString before = text();
      ExpressionDialog dialog(window(), property_.caption, kind, before, sample);
      connectGuarded(&dialog, &ExpressionDialog::written, this, [&] { show(dialog.text()); });
      if (dialog.exec() != QDialog::Accepted) return show(before);
      Q_EMIT chosen();
    });
  }
  void setValue(const std::optional<PropertyValue>& value) override {
    isDiffering_ = !value;
    show(value ? std::get<QString>(*value) : QString());
  }
  std::optional<PropertyValue> value() const override {
    if (isDiffering_ && line_->text().isEmpty()) return {};
    return text();
  }

 private:
  /// Line ends are shown as a sign in the one line. What nobody edited stays as it was, also where it holds that sign.
  void show(const QString& text) {
    given_ = text;
    line_->setText(QString(text).replace(u'\n', u'⏎'));
    shown_ = line_->text();
  }
  QString text() const { return line_->text() == shown_ ? given_ : line_->text().replace(u'⏎', u'\n'); }

  const PropertyInfo& property_;
  QLineEdit* line_;
  QString given_;
  QString shown_;
  bool isDiffering_ = false;
};

class ChoiceEdit : public PropertyEdit {
 public:
  ChoiceEdit(const PropertyInfo& property, QWidget* parent) : PropertyEdit(parent), box_(new QComboBox(this)) {
    rowOf(this)->addWidget(box_);
    setFocusProxy(box_);
    for (const PropertyChoice& each : property.choices) box_->addItem(each.caption, each.word);
    connectGuarded(box_, &QComboBox::activated, this, [this] { Q_EMIT chosen(); });
  }
  void setValue(const std::optional<PropertyValue>& value) override { box_->setCurrentIndex(value ? box_->findData(std::get<QString>(*value)) : -1); }
  std::optional<PropertyValue> value() const override {
    if (box_->currentIndex() < 0) return {};
    return box_->currentData().toString();
  }

 private:
  QComboBox* box_;
};

/// A text that is usually one of a list: formats, names of data sets.
class OfferedEdit : public PropertyEdit {
 public:
  OfferedEdit(const QStringList& offered, QWidget* parent) : PropertyEdit(parent), box_(new QComboBox(this)) {
    rowOf(this)->addWidget(box_);
    setFocusProxy(box_);
    box_->setEditable(true);
    box_->setInsertPolicy(QComboBox::NoInsert);
    box_->addItems(offered);
    connectGuarded(box_, &QComboBox::activated, this, [this] { Q_EMIT chosen(); });
  }
  void setValue(const std::optional<PropertyValue>& value) override {
    isDiffering_ = !value;
    box_->setEditText(value ? std::get<QString>(*value) : QString());
  }
  std::optional<PropertyValue> value() const override {
    if (isDiffering_ && box_->currentText().isEmpty()) return {};
    return box_->currentText();
  }

 private:
  QComboBox* box_;
  bool isDiffering_ = false;
};

/// Buttons of which any number may be down.
class SidesEdit : public PropertyEdit {
 public:
  explicit SidesEdit(QWidget* parent) : PropertyEdit(parent) {
    QBoxLayout* row = rowOf(this);
    const std::pair<QString, QString> sides[] = {{u"left"_s, u"Sol"_s}, {u"top"_s, u"Üst"_s}, {u"right"_s, u"Sağ"_s}, {u"bottom"_s, u"Alt"_s}};
    for (const auto& [word, caption] : sides) {
      auto* button = new QToolButton(this);
      button->setText(caption);
      button->setCheckable(true);
      button->setObjectName(word);
      row->addWidget(button, 1);
      buttons_.push_back(button);
      connectGuarded(button, &QToolButton::clicked, this, [this] { isTouched_ = true; });
    }
    setFocusProxy(buttons_.front());
  }
  void setValue(const std::optional<PropertyValue>& value) override {
    for (QToolButton* button : buttons_) button->setChecked(value && std::get<QString>(*value).contains(button->objectName()));
  }
  std::optional<PropertyValue> value() const override {
    if (!isTouched_) return {};
    QStringList words;
    for (const QToolButton* button : buttons_)
      if (button->isChecked()) words += button->objectName();
    return words.join(u' ');
  }

 private:
  std::vector<QToolButton*> buttons_;
  bool isTouched_ = false;
};

class ColorEdit : public PropertyEdit {
 public:
  explicit ColorEdit(QWidget* parent) : PropertyEdit(parent), button_(new ColorButton(this)) {
    rowOf(this)->addWidget(button_);
    setFocusProxy(button_);
    connectGuarded(button_, &ColorButton::colorChosen, this, [this](const QColor& color) {
      value_ = color;
      Q_EMIT chosen();
    });
  }
  void setValue(const std::optional<PropertyValue>& value) override {
    value_ = value;
    button_->setColor(value ? std::get<QColor>(*value) : QColor());
  }
  std::optional<PropertyValue> value() const override { return value_; }

 private:
  ColorButton* button_;
  std::optional<PropertyValue> value_;
};

/// Family and size, below them the styles. Where fonts differ, each keeps what is not touched.
class FontEdit : public PropertyEdit {
 public:
  explicit FontEdit(QWidget* parent) : PropertyEdit(parent), family_(new QFontComboBox(this)), points_(new QLineEdit(this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    setAutoFillBackground(true);
    family_->setAccessibleName(u"Yazı tipinin adı"_s);
    family_->setMinimumContentsLength(6);
    family_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    points_->setAccessibleName(u"Boy"_s);
    points_->setMinimumWidth(fontMetrics().horizontalAdvance(u"00,00"_s));
    column->addWidget(family_);
    auto* styles = new QHBoxLayout;
    styles->setSpacing(0);
    styles->addWidget(points_, 1);
    const std::tuple<QString, QString, bool ReportFont::*> all[] = {{u"bold"_s, u"Kalın"_s, &ReportFont::bold},
                                                                    {u"italic"_s, u"Eğik"_s, &ReportFont::italic},
                                                                    {u"underline"_s, u"Altı çizili"_s, &ReportFont::underline},
                                                                    {u"strikethrough"_s, u"Üstü çizili"_s, &ReportFont::strikeOut}};
    for (const auto& [word, caption, style] : all) {
      auto* button = new QToolButton(this);
      button->setIcon(QIcon::fromTheme(u"format-text-"_s + word));
      button->setCheckable(true);
      button->setAutoRaise(true);
      button->setToolTip(caption);
      button->setAccessibleName(caption);
      styles->addWidget(button);
      styles_.push_back({button, style});
      connectGuarded(button, &QToolButton::clicked, this, [this, place = styles_.size() - 1] {
        styles_[place].isTouched = true;
        Q_EMIT applied();
      });
    }
    column->addLayout(styles);
    setFocusProxy(family_);
    connectGuarded(family_, &QComboBox::textActivated, this, [this] { Q_EMIT applied(); });
  }
  void setValue(const std::optional<PropertyValue>& value) override {
    shown_ = value ? std::get<ReportFont>(*value) : ReportFont();
    isDiffering_ = !value;
    family_->setEditText(value ? shown_.family : QString());
    points_->setText(value ? NumberText::fromDouble(shown_.points) : QString());
    for (Style& each : styles_) {
      each.button->setChecked(value && shown_.*each.style);
      each.isTouched = false;
    }
  }
  std::optional<PropertyValue> value() const override {
    const bool isTouched = std::any_of(styles_.begin(), styles_.end(), [](const Style& each) { return each.isTouched; });
    if (isDiffering_ && !isTouched && points_->text().trimmed().isEmpty() && family_->currentText().trimmed().isEmpty()) return {};
    return valueFor(shown_);
  }
  PropertyValue valueFor(const PropertyValue& own) const override {
    auto font = std::get<ReportFont>(own);
    if (const QString family = family_->currentText().trimmed(); !family.isEmpty()) font.family = family;
    if (const QString size = points_->text().trimmed(); !isDiffering_ || !size.isEmpty()) {
      const auto points = NumberText::toDouble(size);
      if (!points || *points < 1 || *points > 400) throw EConvertError(u"yazı boyu 1 ile 400 arasında olmalı"_s);
      font.points = *points;
    }
    for (const Style& each : styles_)
      if (each.isTouched) font.*each.style = each.button->isChecked();
    return font;
  }

 private:
  struct Style {
    QToolButton* button;
    bool ReportFont::*style;
    bool isTouched = false;
  };

  QFontComboBox* family_;
  QLineEdit* points_;
  std::vector<Style> styles_;
  ReportFont shown_;
  bool isDiffering_ = false;
};

class PictureEdit : public PropertyEdit {
 public:
  explicit PictureEdit(QWidget* parent) : PropertyEdit(parent) {
    QBoxLayout* row = rowOf(this);
    const auto add = [&](const QString& caption, auto work) {
      auto* button = new QToolButton(this);
      button->setText(caption);
      row->addWidget(button, 1);
      connectGuarded(button, &QToolButton::clicked, this, work);
      return button;
    };
    setFocusProxy(add(u"Dosyadan…"_s, [this] { fromFile(); }));
    add(u"Kaldır"_s, [this] {
      value_ = QByteArray();
      Q_EMIT chosen();
    });
  }
  void setValue(const std::optional<PropertyValue>& value) override { value_ = value; }
  std::optional<PropertyValue> value() const override { return value_; }

 private:
  void fromFile() {
    const QByteArray bytes = askPicture(window());
    if (bytes.isEmpty()) return;
    value_ = bytes;
    Q_EMIT chosen();
  }

  std::optional<PropertyValue> value_;
};

}  // namespace

bool PropertyEdit::focusNextPrevChild(bool isNext) {
  guarded(this, [&] {
    QList<QWidget*> fields = findChildren<QWidget*>();
    fields.removeIf([](const QWidget* each) { return each->focusProxy() || !(each->focusPolicy() & Qt::TabFocus) || !each->isVisible(); });
    const qsizetype place = fields.indexOf(QApplication::focusWidget()) + (isNext ? 1 : -1);
    if (place >= 0 && place < fields.size())
      fields[place]->setFocus(isNext ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    else
      Q_EMIT passed(isNext);
  });
  return true;
}

QByteArray askPicture(QWidget* owner) {
  const QString name = askOpenFile(owner, u"Resim seç"_s, u"Resim (*.png *.jpg *.jpeg *.bmp *.gif *.svg)"_s, {});
  if (name.isEmpty()) return {};
  QFile file(name);
  QByteArray bytes;
  if (file.open(QIODevice::ReadOnly)) bytes = file.readAll();
  if (!QImage::fromData(bytes).isNull()) return bytes;
  showPlainMessage(owner, TaskIcon::Warning, u"Bu dosya okunabilen bir resim değil."_s);
  return {};
}

PropertyEdit* makePropertyEdit(const PropertyInfo& property, const DesignSample& sample, QWidget* parent) {
  switch (property.type) {
    case PropertyType::Millimetres:
    case PropertyType::Integer: return new NumberEdit(property, parent);
    case PropertyType::Choice: return new ChoiceEdit(property, parent);
    case PropertyType::Sides: return new SidesEdit(parent);
    case PropertyType::Color: return new ColorEdit(parent);
    case PropertyType::Font: return new FontEdit(parent);
    case PropertyType::Picture: return new PictureEdit(parent);
    case PropertyType::Format:
      return new OfferedEdit({{}, u",0.00"_s, u",0.00 TL"_s, u",0"_s, u"0.##"_s, u"dd.MM.yyyy"_s, u"d MMMM yyyy"_s, u"dd.MM.yyyy HH:mm"_s, u"HH:mm"_s}, parent);
    default: break;
  }
  if (property.name == u"data") {
    QStringList names{{}};
    for (const ReportDataSet& each : sample.data.dataSets()) names += each.name;
    return new OfferedEdit(names, parent);
  }
  return new TextEditLine(property, sample, parent);
}
