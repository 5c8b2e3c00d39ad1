#include "toolkit/edits/task_dialog.h"

#include "base/guard.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTimer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int textWidth = 420;
constexpr int tickMs = 100;

QIcon iconFor(const QWidget* widget, TaskIcon icon) {
  switch (icon) {
    case TaskIcon::Information:
      return widget->style()->standardIcon(QStyle::SP_MessageBoxInformation);
    case TaskIcon::Warning:
      return widget->style()->standardIcon(QStyle::SP_MessageBoxWarning);
    case TaskIcon::Error:
      return widget->style()->standardIcon(QStyle::SP_MessageBoxCritical);
    case TaskIcon::Question:
      return widget->style()->standardIcon(QStyle::SP_MessageBoxQuestion);
    case TaskIcon::None:
      break;
  }
  return {};
}

class TaskDialogWindow : public QDialog {
 public:
  TaskDialogWindow(QWidget* owner, const TaskDialogRequest& request) : QDialog(owner), result_(request.cancelResult) {
    setWindowTitle(request.title);
    setAccessibleName(request.instruction);
    setAccessibleDescription(request.text);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(message(request), 1);
    if (request.closeAfterMs > 0) column->addWidget(remainingTime(request.closeAfterMs));
    column->addWidget(buttonRow(request));
    column->setSizeConstraint(QLayout::SetFixedSize);
  }

  int answer() {
    exec();
    return result_;
  }

 private:
  QWidget* message(const TaskDialogRequest& request) {
    auto* panel = new QWidget(this);
    panel->setAutoFillBackground(true);
    panel->setBackgroundRole(QPalette::Base);
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(16, 16, 20, 16);
    row->setSpacing(14);
    if (const QIcon icon = iconFor(this, request.icon); !icon.isNull()) {
      auto* picture = new QLabel(panel);
      picture->setPixmap(icon.pixmap(QSize(32, 32), devicePixelRatioF()));
      row->addWidget(picture, 0, Qt::AlignTop);
    }
    auto* texts = new QVBoxLayout;
    texts->setSpacing(10);
    if (!request.instruction.isEmpty()) {
      auto* instruction = new QLabel(request.instruction, panel);
      instruction->setTextFormat(Qt::PlainText);
      QFont large = font();
      large.setPointSizeF(large.pointSizeF() * 1.35);
      instruction->setFont(large);
      QPalette ink = instruction->palette();
      ink.setColor(QPalette::WindowText, QColor(0x00, 0x33, 0x99));
      instruction->setPalette(ink);
      texts->addWidget(instruction);
    }
    texts->addWidget(textPart(request.text, panel));
    texts->addStretch();
    row->addLayout(texts, 1);
    return panel;
  }

  /// The text, in a scroll area when it is too long for the screen.
  QWidget* textPart(const QString& text, QWidget* panel) {
    auto* label = new QLabel(text, panel);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setWordWrap(true);
    label->setFixedWidth(textWidth);
    const int most = screen()->availableGeometry().height() / 2;
    const int height = label->heightForWidth(textWidth);
    if (height <= most) {
      label->setFixedHeight(height);
      return label;
    }
    auto* area = new QScrollArea(panel);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(label);
    label->setFixedHeight(height);
    area->setFixedSize(textWidth + 24, most);
    return area;
  }

  QWidget* remainingTime(int milliseconds) {
    auto* bar = new QProgressBar(this);
    bar->setTextVisible(false);
    bar->setFixedHeight(4);
    bar->setRange(0, milliseconds);
    bar->setValue(milliseconds);
    auto* tick = new QTimer(this);
    connectGuarded(tick, &QTimer::timeout, this, [this, bar] {
      bar->setValue(std::max(0, bar->value() - tickMs));
    });
    tick->start(tickMs);
    postGuarded(this, [this] { reject(); }, milliseconds);
    return bar;
  }

  QWidget* buttonRow(const TaskDialogRequest& request) {
    auto* panel = new QWidget(this);
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(12, 10, 12, 10);
    row->addStretch();
    for (const TaskButton& description : request.buttons) {
      auto* button = new QPushButton(QString(description.caption).replace(u"&"_s, u"&&"_s), panel);
      button->setMinimumWidth(90);
      button->setAutoDefault(true);
      const bool first = &description == &request.buttons.front();
      if (description.id == request.defaultButton || (request.defaultButton == 0 && first)) {
        button->setDefault(true);
        button->setFocus();
      }
      connectGuarded(button, &QPushButton::clicked, this, [this, id = description.id] {
        result_ = id;
        accept();
      });
      row->addWidget(button);
    }
    return panel;
  }

  int result_;
};

/// A text as the name of a file on every system.
QString asFileName(QString text) {
  for (QChar& letter : text)
    if (letter < u' ' || u"\\/:*?\"<>|"_s.contains(letter)) letter = u'-';
  return text.simplified();
}

QString askFile(QWidget* owner, QFileDialog::AcceptMode mode, const QString& title, const QString& filter, const QString& suffix,
                const QString& proposed) {
  static QString lastFolder;
  QFileDialog dialog(owner ? owner->window() : nullptr, title, lastFolder, filter);
  dialog.setAcceptMode(mode);
  const bool opens = mode == QFileDialog::AcceptOpen;
  dialog.setFileMode(opens ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
  dialog.setDefaultSuffix(suffix);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setLabelText(QFileDialog::LookIn, u"Konum:"_s);
  dialog.setLabelText(QFileDialog::FileName, u"Dosya adı:"_s);
  dialog.setLabelText(QFileDialog::FileType, u"Dosya türü:"_s);
  dialog.setLabelText(QFileDialog::Accept, opens ? u"Aç"_s : u"Kaydet"_s);
  dialog.setLabelText(QFileDialog::Reject, u"Vazgeç"_s);
  if (!proposed.isEmpty()) dialog.selectFile(u"%1.%2"_s.arg(asFileName(proposed), suffix));
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
  const QString file = dialog.selectedFiles().first();
  lastFolder = QFileInfo(file).absolutePath();
  return file;
}

std::unique_ptr<DialogDriver>& driver() {
  static std::unique_ptr<DialogDriver> current;
  return current;
}

DialogDriver& activeDriver() {
  static DialogDriver real;
  return driver() ? *driver() : real;
}

}  // namespace

int DialogDriver::runTaskDialog(QWidget* owner, const TaskDialogRequest& request) {
  QPointer<QWidget> form = QApplication::activeWindow();
  if (!form && owner) form = owner->window();
  const QPointer<QWidget> control = form ? form->focusWidget() : nullptr;
  int answer = request.cancelResult;
  {
    TaskDialogWindow window(owner ? owner->window() : form.data(), request);
    if (request.beep) QApplication::beep();
    answer = window.answer();
  }
  if (form) form->activateWindow();
  if (control && !control->hasFocus()) control->setFocus(Qt::ActiveWindowFocusReason);
  return answer;
}

QString DialogDriver::askOpenFile(QWidget* owner, const QString& title, const QString& filter, const QString& suffix) {
  return askFile(owner, QFileDialog::AcceptOpen, title, filter, suffix, {});
}

QString DialogDriver::askSaveFile(QWidget* owner, const QString& title, const QString& filter, const QString& suffix, const QString& proposed) {
  const QString file = askFile(owner, QFileDialog::AcceptSave, title, filter, suffix, proposed);
  if (file.isEmpty() || !QFileInfo::exists(file)) return file;
  constexpr int replaceIt = 1;
  const int answer = ::runTaskDialog(owner, {title, u"Dikkat!"_s, u"\"%1\" zaten var.\nÜzerine yazılsın mı?"_s.arg(QFileInfo(file).fileName()),
                                             TaskIcon::Question, {{replaceIt, u"Tamam"_s}, {2, u"Vazgeç"_s}}, 2});
  return answer == replaceIt ? file : QString();
}

QString DialogDriver::askText(QWidget* owner, const QString& title, const QString& prompt) {
  QInputDialog dialog(owner);
  dialog.setWindowTitle(title);
  dialog.setLabelText(prompt);
  dialog.setOkButtonText(u"Tamam"_s);
  dialog.setCancelButtonText(u"Vazgeç"_s);
  dialog.resize(textWidth, dialog.sizeHint().height());
  return dialog.exec() == QDialog::Accepted ? dialog.textValue() : QString();
}

std::unique_ptr<DialogDriver> setDialogDriver(std::unique_ptr<DialogDriver> next) { return std::exchange(driver(), std::move(next)); }

int runTaskDialog(QWidget* owner, const TaskDialogRequest& request) { return activeDriver().runTaskDialog(owner, request); }

QString askOpenFile(QWidget* owner, const QString& title, const QString& filter, const QString& suffix) {
  return activeDriver().askOpenFile(owner, title, filter, suffix);
}

QString askSaveFile(QWidget* owner, const QString& title, const QString& filter, const QString& suffix, const QString& proposed) {
  return activeDriver().askSaveFile(owner, title, filter, suffix, proposed);
}

QString askText(QWidget* owner, const QString& title, const QString& prompt) {
  return activeDriver().askText(owner, title, prompt);
}

void showPlainMessage(QWidget* owner, TaskIcon icon, const QString& text) {
  constexpr int closed = 2;
  runTaskDialog(owner, {QCoreApplication::applicationName(), {}, text, icon, {{closed, u"Tamam"_s}}, closed});
}
