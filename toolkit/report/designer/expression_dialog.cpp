#include "toolkit/report/designer/expression_dialog.h"

#include "base/environment.h"
#include "base/guard.h"
#include "toolkit/edits/plain_text.h"
#include "toolkit/report/designer/data_list.h"
#include "toolkit/report/expression_functions.h"
#include "toolkit/shell/screen_room.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>

using namespace Qt::StringLiterals;

ExpressionDialog::ExpressionDialog(QWidget* owner, const QString& caption, Kind kind, const QString& text, const DesignSample& sample)
    : QDialog(owner), kind_(kind), sample_(sample), given_(text), text_(new QPlainTextEdit(this)), result_(new QLabel(this)) {
  setWindowTitle(caption);
  text_->setObjectName(u"expression"_s);
  text_->setAccessibleName(caption);
  text_->setPlainText(text);
  shown_ = plainTextOf(*text_->document());
  text_->setTabChangesFocus(true);
  result_->setTextFormat(Qt::PlainText);
  result_->setWordWrap(true);
  result_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // a text without a blank does not widen the dialog
  result_->setMinimumHeight(result_->fontMetrics().height() * 3);
  result_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  auto* names = new DataList(this);
  names->show(sample.data, true);
  connectGuarded(names, &DataList::nameChosen, this, [this](const QString& name, bool) { insertName(name); });
  auto* writing = new QWidget(this);
  auto* column = new QVBoxLayout(writing);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(new QLabel(kind == Kind::Text ? u"Metin (ifadeler köşeli ayraç içinde):"_s : u"İfade:"_s, writing));
  column->addWidget(text_, 1);
  column->addWidget(new QLabel(u"Sonucu:"_s, writing));
  column->addWidget(result_);
  auto* both = new QSplitter(this);
  both->addWidget(writing);
  both->addWidget(names);
  both->setStretchFactor(0, 3);
  both->setStretchFactor(1, 2);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(u"Tamam"_s, QDialogButtonBox::AcceptRole);
  buttons->addButton(u"Vazgeç"_s, QDialogButtonBox::RejectRole);
  auto* all = new QVBoxLayout(this);
  all->addWidget(both, 1);
  all->addWidget(buttons);
  connectGuarded(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
  connectGuarded(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  connectGuarded(text_, &QPlainTextEdit::textChanged, this, [this] {
    showResult();
    Q_EMIT written();
  });
  showResult();
  resize(withinScreen(*this, QSize(760, 420)));
  text_->setFocus();
}

QString ExpressionDialog::text() const {
  const QString now = plainTextOf(*text_->document());
  return now == shown_ ? given_ : now;
}

void ExpressionDialog::insertName(const QString& name) {
  text_->insertPlainText(kind_ == Kind::Text ? u'[' + name + u']' : name);
  text_->setFocus();
}

void ExpressionDialog::showResult() {
  EvaluationContext context;
  context.data = &sample_.data;
  context.now = environment().now();
  context.page = 1;
  context.pageCount = 1;
  const QString written = kind_ == Kind::Text || text().isEmpty() ? text() : u'[' + text() + u']';
  const ExpressionText parsed(written);
  const QStringList faults = parsed.faults(sample_.data);
  result_->setForegroundRole(faults.isEmpty() ? QPalette::WindowText : QPalette::Link);
  result_->setText(faults.isEmpty() ? parsed.evaluate(context, {}).text : u"Hata: "_s + faults.join(u"; "_s));
}
