#include "comm/marker_memo.h"

#include "base/guard.h"
#include "comm/sms_text.h"
#include "toolkit/edits/memo_edit.h"

#include <QListWidget>

using namespace Qt::StringLiterals;

QListWidget* MarkerMemo::markerList(MemoEdit& memo) {
  auto* list = new QListWidget(&memo);
  list->addItems(SmsText::markers());
  list->setAccessibleName(u"Şablon Alanları"_s);
  list->setToolTip(u"Şablona eklemek için çift tıklayın"_s);
  list->setMinimumHeight(list->sizeHintForRow(0) * list->count() + 2 * list->frameWidth());
  connectGuarded(list, &QListWidget::itemActivated, &memo,
                 [&memo](const QListWidgetItem* item) { memo.insertBehindSelection(item->text() + u' '); });
  return list;
}
