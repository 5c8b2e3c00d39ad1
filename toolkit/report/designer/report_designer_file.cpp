#include "base/environment.h"
#include "base/exceptions.h"
#include "base/guard.h"
#include "base/log_file.h"
#include "base/program_paths.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/report/designer/data_list.h"
#include "toolkit/report/designer/fault_list.h"
#include "toolkit/report/designer/inspector.h"
#include "toolkit/report/designer/label_wizard.h"
#include "toolkit/report/designer/page_setup_dialog.h"
#include "toolkit/report/designer/property_editors.h"
#include "toolkit/report/designer/report_designer.h"
#include "toolkit/report/designer/template_picker.h"
#include "toolkit/report/designer/test_sheet.h"
#include "toolkit/report/preview/preview_window.h"
#include "toolkit/report/report_file.h"

#include <QDir>
#include <QFileInfo>
#include <QTimer>

using namespace Qt::StringLiterals;

/// The designer and its file: opening, saving, leaving, earlier versions, work under way; and what goes on paper.

namespace {

enum Answer { Cancelled = 2, Yes = 10, No = 11 };

int ask(QWidget* owner, const QString& instruction, const QString& text, const std::vector<TaskButton>& buttons) {
  return runTaskDialog(owner, {.title = u"Rapor Tasarım"_s,
                               .instruction = instruction,
                               .text = text,
                               .icon = TaskIcon::Question,
                               .buttons = buttons,
                               .cancelResult = Cancelled});
}

void showFailure(QWidget* owner, const QString& instruction, const Exception& error) {
  runTaskDialog(owner, {.title = u"Rapor Tasarım"_s,
                        .instruction = instruction,
                        .text = error.message(),
                        .icon = TaskIcon::Error,
                        .buttons = {{Yes, u"Kapat"_s}}});
}

}  // namespace

void ReportDesigner::open(const QString& file, DesignSample sample) {
  auto opened = std::make_unique<TemplateFile>(file);
  ReportDocument document = opened->load();
  if (file_) file_->dropDraft();  // whoever opens another one has left this one
  file_ = std::move(opened);
  given_ = std::move(sample);
  showsExample_ = false;
  sample_ = given_;
  editor_.open(std::move(document));
  data_->show(sample_.data);
  faults_->search();
  canvas_->setFocus();
  showTitle();
  draftTimer_->start();
  // Asked in front of the window, which is shown after this.
  postGuarded(this, [this] { offerDraft(); });
}

void ReportDesigner::close() {
  draftTimer_->stop();
  if (file_) file_->dropDraft();
  file_.reset();
  editor_.open(ReportDocument());
}

void ReportDesigner::openAnother() {
  if (!mayLeave()) return;
  TemplatePick pick{.title = u"Şablon Aç"_s,
                    .explanation = u"%1 klasöründeki şablonlar:"_s.arg(QDir::toNativeSeparators(openFolder_)),
                    .nothing = u"Bu klasörde şablon yok."_s,
                    .button = u"Aç"_s,
                    .entries = {},
                    .current = file_->file()};
  for (const QString& file : TemplateFile::allIn(openFolder_)) pick.entries.push_back({TemplateFile::captionOf(file), file});
  TemplatePicker dialog(window(), std::move(pick), sample_);
  if (dialog.exec() != QDialog::Accepted) return;
  try {
    open(dialog.file(), given_);
  } catch (const EInOutError& error) {
    showFailure(window(), u"Şablon açılamadı"_s, error);
  }
}

bool ReportDesigner::save() {
  settle();
  if (!file_ || !editor_.isChanged()) return true;
  try {
    if (file_->isChangedByOthers()) {
      const bool isThere = QFileInfo::exists(file_->file());
      const int answer =
          isThere ? ask(window(), u"Şablon bu arada başka bir yerden kaydedilmiş"_s,
                        u"Üzerine yazarsanız oradaki değişiklikler bu şablondan gider; “Önceki sürümler” içinde saklanır."_s,
                        {{Yes, u"Üzerine yaz"_s}, {Cancelled, u"Vazgeç"_s}})
                  : ask(window(), u"Şablonun dosyası bu arada silinmiş"_s, u"Kaydederseniz dosya yeniden oluşturulur."_s,
                        {{Yes, u"Kaydet"_s}, {Cancelled, u"Vazgeç"_s}});
      if (answer != Yes) return false;
    }
    file_->save(editor_.document());
  } catch (const EInOutError& error) {
    showFailure(window(), u"Şablon kaydedilemedi"_s, error);
    return false;
  }
  editor_.steps().setClean();
  tell(u"Kaydedildi: %1"_s.arg(QFileInfo(file_->file()).fileName()));
  return true;
}

bool ReportDesigner::mayLeave() {
  settle();
  if (!editor_.isChanged()) return true;
  const int answer = ask(window(), u"Değişiklikler kaydedilsin mi?"_s, u"Kaydetmezseniz bu oturumda yaptıklarınız kaybolur."_s,
                         {{Yes, u"Kaydet"_s}, {No, u"Kaydetme"_s}, {Cancelled, u"Tasarıma dön"_s}});
  if (answer == Yes) return save();
  return answer == No;
}

// Work under way

void ReportDesigner::keepDraft() {
  PropertyChanges written = canvas_->written();
  for (PropertyChange& each : inspector_->written()) written.push_back(std::move(each));
  std::erase_if(written, [](const PropertyChange& each) { return each.node->value(each.property) == each.value; });
  if (!file_ || !(editor_.isChanged() || !written.empty())) return;
  // Put in for the time of the copy.
  const auto swap = [&written] {
    for (PropertyChange& each : written) each.value = each.node->setValue(each.property, std::move(each.value));
  };
  swap();
  const ReportDocument work = editor_.document().clone();
  swap();
  try {
    file_->keepDraft(work);
  } catch (const EInOutError& error) {
    tell(u"Ara kayıt yapılamadı: %1"_s.arg(error.message()));
  }
}

void ReportDesigner::offerDraft() {
  const QString draft = file_ ? file_->orphanedDraft() : QString();
  if (draft.isEmpty()) return;
  const QString moment = QFileInfo(draft).lastModified().toString(u"dd.MM.yyyy HH:mm"_s);
  const int answer = ask(window(), u"Kaydedilmemiş bir çalışma bulundu"_s,
                         u"Bu şablon üzerindeki %1 tarihli çalışma kaydedilmeden kapanmış. Kaldığınız yerden sürdürebilirsiniz."_s.arg(moment),
                         {{Yes, u"Sürdür"_s}, {No, u"Sil"_s}, {Cancelled, u"Sonra sor"_s}});
  try {
    if (answer == Yes) editor_.replace(u"Kaydedilmemiş çalışma"_s, ReportFile::load(draft));
    if (answer == No) file_->dropDraft();
    if (answer == Cancelled) file_->leaveDraft();
  } catch (const EInOutError& error) {
    file_->leaveDraft();
    showFailure(window(), u"Çalışma okunamadı"_s, error);
  }
}

// Earlier states

void ReportDesigner::showVersions() {
  TemplatePick pick{.title = u"Önceki Sürümler"_s,
                    .explanation = u"Şablonun son kaydedilen halleri. Geri getirilen, kaydedince geçerli olur."_s,
                    .nothing = u"Bu şablonun önceki sürümü yok."_s,
                    .button = u"Geri getir"_s,
                    .entries = {}};
  for (const TemplateFile::Version& each : file_->versions()) pick.entries.push_back({each.saved.toString(u"dd.MM.yyyy HH:mm:ss"_s), each.file});
  TemplatePicker dialog(window(), std::move(pick), sample_);
  if (dialog.exec() != QDialog::Accepted) return;
  try {
    editor_.replace(u"Önceki sürüm"_s, ReportFile::load(dialog.file()));
    tell(u"Önceki sürüm geri getirildi; kaydedince geçerli olur."_s);
  } catch (const EInOutError& error) {
    showFailure(window(), u"Sürüm okunamadı"_s, error);
  }
}

void ReportDesigner::bringBackDelivered() {
  try {
    editor_.replace(u"Teslim edilen şablon"_s, ReportFile::load(file_->deliveredFile()));
    tell(u"Teslim edilen şablon geri getirildi; kaydedince geçerli olur."_s);
  } catch (const EInOutError& error) {
    showFailure(window(), u"Şablon okunamadı"_s, error);
  }
}

// Paper

void ReportDesigner::preview() {
  const ReportDocument filled = filledWith(editor_.document(), sample_);
  auto pages = std::make_shared<const ReportPagedDocument>(layoutReport(filled, sample_.data, sample_.richTexts, environment().now()));
  if (pages->pageCount() > 0) showPreview(window(), std::move(pages), {.documentName = sample_.documentName, .printer = sample_.printer});
}

void ReportDesigner::testPrint() {
  showPreview(window(), std::make_shared<const TestSheet>(ReportSheet(*editor_.page())), {.caption = u"Deneme baskısı"_s, .documentName = u"Deneme baskısı"_s, .printer = sample_.printer});
}

void ReportDesigner::choosePicture() {
  const std::vector<ReportNode*> selected = editor_.selectedObjects();
  if (selected.size() != 1 || selected.front()->kind() != NodeKind::Picture) return;
  const QByteArray bytes = askPicture(window());
  if (!bytes.isEmpty()) editor_.change(u"Resim"_s, *selected.front(), u"picture"_s, bytes);
}

void ReportDesigner::setUpPage() {
  PageSetupDialog dialog(window(), *editor_.page());
  if (dialog.exec() != QDialog::Accepted) return;
  PropertyChanges changes;
  for (auto& [property, value] : dialog.values()) changes.push_back({editor_.page(), property, value});
  editor_.change(u"Sayfa düzeni"_s, std::move(changes));
  canvas_->fitReadable();
}

void ReportDesigner::runWizard() {
  LabelWizard wizard(window(), sample_);
  if (wizard.exec() != QDialog::Accepted) return;
  editor_.replace(u"Sihirbaz"_s, wizard.document());
  canvas_->fitReadable();
}
