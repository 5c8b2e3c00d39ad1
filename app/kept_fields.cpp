#include "app/kept_fields.h"

#include "app/ports.h"
#include "base/exceptions.h"
#include "base/platform/settings_store.h"
#include "toolkit/edits/edit_box.h"

using namespace Qt::StringLiterals;

namespace {

const QString path = u"SOFTWARE\\Quendrine"_s;
const QString section = u"KVTK"_s;

}  // namespace

KeptFields::KeptFields(std::vector<EditBox*> boxes) : boxes_(std::move(boxes)) {
  for (EditBox* box : boxes_) box->setText(SettingsStore::read(path, section, box->objectName(), box->text()));
}

KeptFields::~KeptFields() {
  try {
    for (const EditBox* box : boxes_) SettingsStore::write(path, section, box->objectName(), box->text());
  } catch (const Exception& error) {
    logMessage(u"Hesap bilgileri saklanamadı"_s, &error);
  }
}
