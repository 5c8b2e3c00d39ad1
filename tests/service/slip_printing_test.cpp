#include "app/company_card.h"
#include "app/quendUtils.h"
#include "base/platform/settings_store.h"
#include "extras/report_design.h"
#include "tests/service/slip_form_fixture.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/report/designer/fault_list.h"
#include "toolkit/report/designer/report_designer.h"
#include "toolkit/report/paged_document.h"
#include "toolkit/report/report.h"

namespace {

class SlipPrintingTest : public SlipFormTest {
 protected:
  SlipPrintingTest() {
    QuendUtil->programFolder = folder.path() + u'/';
    QDir(folder.path()).mkpath(u"rapor/barkod"_s);
  }
  void writeTemplate(const QString& name, const QString& texts) {
    put(folder.filePath(u"rapor/"_s + name),
        "<report version=\"1\"><page name=\"S\"><band name=\"B\" height=\"60\">" + texts.toUtf8() + "</band></page></report>");
  }
  /// True when the prepared report shows the word.
  bool shows(const QString& word) {
    const ReportPagedDocument pages(workspace.frxReport1->prepare());
    return !pages.find(0, word).empty();
  }
  static QString line(const QString& expression, int top = 0) {
    return u"<text width=\"180\" top=\"%1\" height=\"6\">%2</text>"_s.arg(top).arg(expression);
  }
};

}  // namespace

TEST_F(SlipPrintingTest, TheReceiptTakesWhatStandsOnTheScreen) {
  TfSirket company;
  ports().openCompany();
  company.findChild<EditBox*>(u"SIRKET_ADI"_s)->setText(u"TORVANE ŞİŞLİ"_s);
  TfServisFis* slip = filledSlip(u"700"_s);
  EXPECT_FALSE(slip->MakbuzBask1->isEnabled());
  addLine(slip, u"KAYIŞ"_s, u"2"_s, u"12,5"_s);
  save(slip);
  ASSERT_TRUE(slip->MakbuzBask1->isEnabled());
  slip->MakbuzBask1->trigger();
  EXPECT_EQ(dialogs.texts, QStringList{u"Rapor dosyası bulunamadı."_s});

  writeTemplate(u"0.fr3"_s, line(u"A[FIS_NO]B[CIHAZ_TANIMI]C"_s) + line(u"C[TAMIR_TUTAR]D[SERVIS_TUTAR * 2]E[SIRKET_ADI]F"_s, 8) +
                                line(u"F[NOTLAR]G[TOPLAM(Malzeme.MZ_TUTAR)]H"_s, 14) + u"<barcode name=\"FIS_NO_BARKOD1\" top=\"20\" width=\"50\" height=\"10\"/>"_s);
  box(slip, u"TS_SERVIS_TUTAR"_s)->setText(u"1.250,50"_s);
  box(slip, u"TS_TUTAR"_s)->setText({});
  box(slip, u"TS_C_AD"_s)->setText(u"ÇAY \"OCAĞI\" [X]"_s);  // not saved: it prints all the same
  note(slip)->setText(u"SATIR"_s);
  parameters.VarsayilanPrinterCopyNum->setText(u"abc"_s);
  slip->MakbuzBask1->trigger();
  for (const QString& printed : {u"A700BÇAY \"OCAĞI\" [X]C"_s, u"CD2501ETORVANE ŞİŞLİF"_s, u"FSATIRG12,5H"_s})
    EXPECT_TRUE(shows(printed)) << printed.toStdString();
  EXPECT_EQ(workspace.frxReport1->copies, 1);
  EXPECT_EQ(dialogs.texts.size(), 1) << "without a printer nothing is told";

  switchOn(ParameterFiles::ReceiptPerStatus);
  slip->MakbuzBask1->trigger();  // the first status has the first file
  EXPECT_EQ(dialogs.texts.size(), 1);
  box(slip, u"TS_TURU"_s)->setText(u"SIRA BEKLİYOR"_s);
  slip->MakbuzBask1->trigger();
  EXPECT_EQ(dialogs.texts.size(), 2);
}

TEST_F(SlipPrintingTest, TheLabelHasItsOwnFileAndTakesTheServiceAmountAsLabour) {
  TfServisFis* slip = filledSlip(u"701"_s);
  slip->findChild<QAction*>(u"BarkodYazdr1"_s)->trigger();  // a missing file is told nowhere
  writeTemplate(u"barkod/etiket.fr3"_s, line(u"A[FIS_NO]B[ISCILIK_TUTAR]C[FIS_TURU]D"_s));
  box(slip, u"TS_SERVIS_TUTAR"_s)->setText(u"30,00"_s);
  box(slip, u"TS_ISCILIK_TUTAR"_s)->setText(u"5,00"_s);
  slip->findChild<QAction*>(u"BarkodYazdr1"_s)->trigger();
  EXPECT_TRUE(shows(u"A701B30CD"_s));
  EXPECT_TRUE(dialogs.texts.isEmpty());
}

TEST_F(SlipPrintingTest, TheDesignCommandsOpenTheirTemplatesAndTheNextPrintTakesWhatWasSaved) {
  const QString statePath = u"Software\\FastReport"_s;
  const auto kept = [&] { return SettingsStore::read(statePath, u"Other"_s, u"a"_s); };
  TfRaporTasarla designer;
  TfServisFis* slip = filledSlip(u"702"_s);
  save(slip);
  SettingsStore::write(statePath, u"Other"_s, u"a"_s, u"1"_s);
  slip->MakbuzDzenle1->trigger();
  EXPECT_EQ(dialogs.texts, QStringList{u"Rapor dosyası bulunamadı."_s});
  EXPECT_FALSE(designer.isVisible());
  EXPECT_EQ(kept(), QString()) << "forgotten before anything else";
  EXPECT_EQ(designer.openFolder(), QFileInfo(folder.filePath(u"rapor"_s)).absoluteFilePath());

  writeTemplate(u"0.fr3"_s, line(u"A[FIS_NO]B"_s));
  writeTemplate(u"barkod/etiket.fr3"_s, line(u"E[FIS_NO]F"_s));
  QStringList titles;
  /// What a user does once the form is up: writes another text, saves and leaves.
  const auto whileShown = [&](const QString& text) {
    QTimer::singleShot(0, &designer, [&, text] {
      titles += designer.windowTitle();
      ReportDesigner& inside = *designer.frxDesigner1;
      ReportNode& object = *inside.editor().page()->children().front()->children().front();
      EXPECT_TRUE(inside.faults().faults().empty()) << "the slip's names are known";
      inside.editor().change(u"x"_s, object, u"text"_s, text);
      inside.actions().action(u"save"_s)->trigger();
      designer.close();
    });
  };
  whileShown(u"C[FIS_NO]D"_s);
  slip->MakbuzDzenle1->trigger();
  EXPECT_FALSE(designer.isVisible());
  slip->MakbuzBask1->trigger();
  EXPECT_TRUE(shows(u"C702D"_s));
  whileShown(u"G[FIS_NO]H"_s);
  slip->findChild<QAction*>(u"BarkodDzenle1"_s)->trigger();
  EXPECT_EQ(titles, (QStringList{u"Rapor Tasarım - 0.fr3"_s, u"Rapor Tasarım - etiket.fr3"_s}));
  slip->findChild<QAction*>(u"BarkodYazdr1"_s)->trigger();
  EXPECT_TRUE(shows(u"G702H"_s));
  EXPECT_EQ(dialogs.texts.size(), 1);
}
