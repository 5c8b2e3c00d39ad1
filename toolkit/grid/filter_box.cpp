#include "toolkit/grid/filter_box.h"

#include "base/guard.h"
#include "base/number_text.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QIcon>
#include <QLabel>
#include <QToolButton>

using namespace Qt::StringLiterals;

FilterBox::FilterBox(QWidget* parent)
    : QWidget(parent), on_(new QCheckBox(this)), words_(new QLabel(this)), hits_(new QLabel(this)), clear_(new QToolButton(this)) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(6, 2, 6, 2);
  on_->setAccessibleName(u"Filtre açık"_s);
  on_->setToolTip(u"Filtreyi kapatır ve açar (Ctrl+Shift+F)"_s);
  clear_->setIcon(QIcon::fromTheme(u"edit-clear"_s));
  clear_->setAutoRaise(true);
  clear_->setAccessibleName(u"Filtreyi temizle"_s);
  clear_->setToolTip(u"Filtreyi temizler (Ctrl+Shift+C)"_s);
  words_->setTextFormat(Qt::PlainText);
  words_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  row->addWidget(clear_);
  row->addWidget(on_);
  row->addWidget(words_, 1);
  row->addWidget(hits_);
  connectGuarded(on_, &QCheckBox::clicked, this, [this](bool on) { Q_EMIT switched(on); });
  connectGuarded(clear_, &QToolButton::clicked, this, [this] { Q_EMIT cleared(); });
  setFixedHeight(fontMetrics().height() + 12);
}

void FilterBox::show(const QString& text, bool on, int hits) {
  text_ = text;
  on_->setChecked(on && !text.isEmpty());
  on_->setEnabled(!text.isEmpty());
  clear_->setEnabled(!text.isEmpty());
  words_->setEnabled(on);
  words_->setAccessibleName(text.isEmpty() ? u"Filtre yok"_s : u"Filtre: %1"_s.arg(text));
  hits_->setText(NumberText::formatted(u",0 satır"_s, hits));
  elide();
}

void FilterBox::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  elide();
}

void FilterBox::elide() {
  words_->setText(words_->fontMetrics().elidedText(text_.isEmpty() ? u"Filtre yok"_s : text_, Qt::ElideRight, words_->width()));
  words_->setToolTip(text_);
}
