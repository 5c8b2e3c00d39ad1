#include "service/slip_windows.h"

#include "app/ports.h"
#include "app/row_conflict.h"
#include "base/data/my_query.h"
#include "base/guard.h"
#include "service/fservisfis_unit.h"
#include "service/fservisfissecUnit.h"

#include <QApplication>

void SlipWindows::openNew() {
  TfServisFis* slip = nullptr;
  ports().inSlipFrame([&] {
    slip = new TfServisFis;
    ports().showChild(slip, {});
  });
  try {
    slip->Insert();
  } catch (...) {
    slip->closeWindow();
    throw;
  }
}

void SlipWindows::open(qint64 id) {
  ports().inSlipFrame([id] {
    auto* slip = new TfServisFis;
    ports().showChild(slip, {});
    try {
      slip->Edit(id);
    } catch (...) {
      // A slip that could not be read would stand there as an empty form; one whose picture is damaged stays.
      if (slip->qServis.IsEmpty()) slip->closeWindow();
      throw;
    }
  });
}

void SlipWindows::choose() {
  std::vector<QString> ids;
  fservisfisSec->Giris(ids);
  for (const QString& id : ids) guarded(fservisfisSec, [&] { open(id.toLongLong()); });
}

void SlipWindows::answerConflict(const QString& className, const QString& message) {
  if (fServisFis != nullptr) return fServisFis->updateDeleteException(className, message);
  answerRowConflict({.owner = QApplication::activeWindow(), .clashMark = SlipRules::numberClash, .uniqueCaption = SlipRules::numberCaption},
                    className, message);
}
