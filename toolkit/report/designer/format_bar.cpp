#include "toolkit/report/designer/format_bar.h"

#include "base/guard.h"
#include "base/number_text.h"
#include "toolkit/report/designer/color_button.h"

#include <QAction>
#include <QFontComboBox>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

FormatBar::FormatBar(ReportEditor& editor, QWidget* parent)
    : QToolBar(parent),
      editor_(editor),
      commands_(editor),
      family_(new QFontComboBox(this)),
      points_(new QComboBox(this)),
      color_(new ColorButton(this)),
      background_(new ColorButton(this)) {
  setIconSize(QSize(18, 18));
  family_->setObjectName(u"fontFamily"_s);
  family_->setAccessibleName(u"Yazı tipi"_s);
  family_->setToolTip(u"Yazı tipi"_s);
  family_->setMaximumWidth(170);
  points_->setObjectName(u"fontSize"_s);
  points_->setAccessibleName(u"Yazı boyu"_s);
  points_->setToolTip(u"Yazı boyu"_s);
  points_->setEditable(true);
  points_->setInsertPolicy(QComboBox::NoInsert);
  points_->setMaximumWidth(66);
  for (const int size : {6, 7, 8, 9, 10, 11, 12, 13, 14, 16, 18, 20, 24, 28, 36, 48}) points_->addItem(QString::number(size));
  addWidget(family_);
  addWidget(points_);
  bold_ = addToggle(u"bold"_s, u"Kalın"_s, u"format-text-bold"_s, QKeySequence(u"Ctrl+B"_s));
  italic_ = addToggle(u"italic"_s, u"Eğik"_s, u"format-text-italic"_s, QKeySequence(u"Ctrl+I"_s));
  underline_ = addToggle(u"underline"_s, u"Altı çizili"_s, u"format-text-underline"_s, QKeySequence(u"Ctrl+U"_s));
  addSeparator();
  const std::tuple<QString, QString, QString> sides[] = {{u"left"_s, u"Sola yasla"_s, u"format-justify-left"_s},
                                                         {u"center"_s, u"Ortala"_s, u"format-justify-center"_s},
                                                         {u"right"_s, u"Sağa yasla"_s, u"format-justify-right"_s},
                                                         {u"justify"_s, u"İki yana yasla"_s, u"format-justify-fill"_s}};
  for (const auto& [word, caption, icon] : sides) {
    QAction* action = addToggle(u"align_"_s + word, caption, icon, {});
    alignments_.emplace_back(word, action);
    connectGuarded(action, &QAction::triggered, this, [this, word] {
      commands_.setSelected(u"align"_s, word);
      showSelection();
    });
  }
  addSeparator();
  color_->setCanBeNone(false);
  color_->setToolTip(u"Yazı ya da çizgi rengi"_s);
  color_->setAccessibleName(u"Renk"_s);
  color_->setToolButtonStyle(Qt::ToolButtonIconOnly);
  background_->setToolTip(u"Zemin rengi"_s);
  background_->setAccessibleName(u"Zemin rengi"_s);
  background_->setToolButtonStyle(Qt::ToolButtonIconOnly);
  addWidget(color_);
  addWidget(background_);
  connectGuarded(color_, &ColorButton::colorChosen, this, [this](const QColor& color) { commands_.setSelected(u"color"_s, color); });
  connectGuarded(background_, &ColorButton::colorChosen, this, [this](const QColor& color) { commands_.setSelected(u"background"_s, color); });
  connectGuarded(family_, &QComboBox::textActivated, this, [this](const QString& family) {
    changeFonts(u"Yazı tipi"_s, [&](ReportFont& font) { font.family = family; });
  });
  const auto setPoints = [this] {
    const auto size = NumberText::toDouble(points_->currentText());
    if (size && *size >= 1 && *size <= 400) changeFonts(u"Yazı boyu"_s, [&](ReportFont& font) { font.points = *size; });
    showSelection();
  };
  connectGuarded(points_, &QComboBox::activated, this, setPoints);
  connectGuarded(points_->lineEdit(), &QLineEdit::returnPressed, this, setPoints);
  connectGuarded(bold_, &QAction::triggered, this, [this](bool on) { changeFonts(u"Kalın"_s, [on](ReportFont& font) { font.bold = on; }); });
  connectGuarded(italic_, &QAction::triggered, this, [this](bool on) { changeFonts(u"Eğik"_s, [on](ReportFont& font) { font.italic = on; }); });
  connectGuarded(underline_, &QAction::triggered, this, [this](bool on) {
    changeFonts(u"Altı çizili"_s, [on](ReportFont& font) { font.underline = on; });
  });
  connectGuarded(&editor, &ReportEditor::selectionChanged, this, [this] { showSelection(); });
  connectGuarded(&editor, &ReportEditor::changed, this, [this] { showSelection(); });
  showSelection();
}

QAction* FormatBar::addToggle(const QString& name, const QString& caption, const QString& icon, const QKeySequence& key) {
  QAction* action = addAction(QIcon::fromTheme(icon), caption);
  action->setObjectName(name);
  action->setCheckable(true);
  action->setShortcut(key);
  action->setShortcutContext(Qt::WindowShortcut);
  action->setToolTip(key.isEmpty() ? caption : u"%1 (%2)"_s.arg(caption, key.toString(QKeySequence::NativeText)));
  QWidget* button = widgetForAction(action);
  button->setAccessibleName(caption);
  button->setFocusPolicy(Qt::TabFocus);
  return action;
}

std::vector<ReportNode*> FormatBar::having(QStringView property) const {
  std::vector<ReportNode*> nodes = editor_.selectedObjects();
  std::erase_if(nodes, [&](const ReportNode* node) { return !findProperty(node->kind(), property); });
  return nodes;
}

void FormatBar::changeFonts(const QString& name, const std::function<void(ReportFont&)>& change) {
  PropertyChanges changes;
  for (ReportNode* node : having(u"font")) {
    ReportFont font = node->font(u"font");
    change(font);
    changes.push_back({node, u"font"_s, font});
  }
  editor_.change(name, std::move(changes));
}

void FormatBar::showSelection() {
  const std::vector<ReportNode*> written = having(u"font");
  const auto all = [&](auto&& isOn) { return !written.empty() && std::all_of(written.begin(), written.end(), isOn); };
  const QSignalBlocker quietFamily(family_);
  const QSignalBlocker quietPoints(points_);
  const ReportFont first = written.empty() ? ReportFont() : written.front()->font(u"font");
  const bool isOneFamily = all([&](const ReportNode* node) { return node->font(u"font").family == first.family; });
  const bool isOneSize = all([&](const ReportNode* node) { return node->font(u"font").points == first.points; });
  family_->setEditText(isOneFamily ? first.family : QString());
  const QString size = isOneSize ? NumberText::fromDouble(first.points) : QString();
  points_->setCurrentIndex(points_->findText(size));
  points_->setEditText(size);
  bold_->setChecked(all([](const ReportNode* node) { return node->font(u"font").bold; }));
  italic_->setChecked(all([](const ReportNode* node) { return node->font(u"font").italic; }));
  underline_->setChecked(all([](const ReportNode* node) { return node->font(u"font").underline; }));
  for (QWidget* box : {static_cast<QWidget*>(family_), static_cast<QWidget*>(points_)}) box->setEnabled(!written.empty());
  for (QAction* action : {bold_, italic_, underline_}) action->setEnabled(!written.empty());
  const std::vector<ReportNode*> aligned = having(u"align");
  for (const auto& [word, action] : alignments_) {
    action->setEnabled(!aligned.empty());
    action->setChecked(!aligned.empty() && std::all_of(aligned.begin(), aligned.end(), [&](const ReportNode* node) { return node->text(u"align") == word; }));
  }
  const auto showColor = [&](ColorButton& button, QStringView property) {
    const std::vector<ReportNode*> nodes = having(property);
    button.setEnabled(!nodes.empty());
    button.setColor(nodes.empty() ? QColor() : nodes.front()->color(property));
  };
  showColor(*color_, u"color");
  showColor(*background_, u"background");
}
