// kvtk-bench-report TEMPLATES: figures of the reports on the delivered templates.
// kvtk-bench-report TEMPLATES FOLDER [NAME]: pictures of every template at 150 dpi with usual data, long texts, no texts and forty
// lines of parts; or of the named one only.

#include "bench/measuring.h"
#include "toolkit/report/paged_output.h"
#include "toolkit/report/preview/preview_window.h"
#include "toolkit/report/printing.h"
#include "toolkit/report/report.h"
#include "toolkit/report/report_file.h"
#include "toolkit/rtf/rich_replace.h"
#include "toolkit/rtf/rtf_reader.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using Measuring::best;
using Measuring::figure;

namespace {

constexpr double picturesDpi = 150;

class PartLines : public ReportRows {
 public:
  explicit PartLines(int count, bool isLong) : count_(count), isLong_(isLong) {}
  QStringList fields() const override { return {u"MZ_SIRANO"_s, u"MZ_PARCA_ADI"_s, u"MZ_ADET"_s, u"MZ_TUTAR"_s}; }
  int rowCount() const override { return count_; }
  ReportValue value(int row, int field) const override {
    static const QStringList names = {u"SSD 512 GB NVMe"_s, u"Termal macun"_s, u"İşlemci fanı"_s, u"LCD ekran 15.6\" IPS mat"_s, u"Şarj soketi"_s};
    switch (field) {
      case 0: return double(row + 1);
      case 1: return isLong_ ? (names[row % 5] + u" — "_s).repeated(6) : names[row % 5];
      case 2: return row % 4 == 3 ? 2.5 : 1.0;
      default: return 149.9 + 37.25 * row;
    }
  }

 private:
  int count_;
  bool isLong_;
};

const QList<std::pair<QString, QString>>& usualTexts() {
  static const QList<std::pair<QString, QString>> texts = {
      {u"FIS_NO"_s, u"10482"_s},
      {u"FIS_TURU"_s, u"ARIZA KABUL"_s},
      {u"FIS_TARIH"_s, u"09.03.2026"_s},
      {u"RANDEVU_TARIH"_s, u"12.03.2026"_s},
      {u"TEKNISYEN_ADI"_s, u"Şükrü Çağlayan"_s},
      {u"FIS_TESLIM_TARIH"_s, u"13.03.2026"_s},
      {u"FIS_ACIKLAMA"_s, u"Acil, öncelikli müşteri"_s},
      {u"FIS_OZELK_KODU"_s, u"VIP"_s},
      {u"FIS_FATURA_NO"_s, u"TRV2026000148"_s},
      {u"SERVIS_TIPI"_s, u"ATÖLYE"_s},
      {u"HIZMET_TIPI"_s, u"VAR"_s},
      {u"GARANTI_DURUM"_s, u"VAR"_s},
      {u"CIHAZ_TANIMI"_s, u"DİZÜSTÜ BİLGİSAYAR"_s},
      {u"CIHAZ_DIS_SERI_NO"_s, u"5CD0248QXN"_s},
      {u"CIHAZ_IC_SERI_NO"_s, u"R-0417"_s},
      {u"CIHAZ_DIS_MODEL_NO"_s, u"ProBook 450 G8"_s},
      {u"CIHAZ_IC_MODEL_NO"_s, u"2X7X9EA"_s},
      {u"CIHAZ_URETICI"_s, u"2X7X9EA"_s},
      {u"CIHAZ_EK_BIRIMLER"_s, u"Şarj aleti, çanta, kablosuz fare"_s},
      {u"CIHAZ_SIKAYET"_s, u"Açılışta siyah ekranda kalıyor, fan çok gürültülü çalışıyor."_s},
      {u"CIHAZ_TEKNIK_RAPOR"_s, u"Fan değiştirildi, termal macun yenilendi, disk yedeklenip SSD takıldı. 24 saat test edildi."_s},
      {u"MUSTERI_ADI"_s, u"IŞIK ÖĞÜT"_s},
      {u"MUSTERI_UNVAN"_s, u"Öğüt Mühendislik Ltd. Şti."_s},
      {u"MUSTERI_NO"_s, u"C-204"_s},
      {u"MUSTERI_ADRES"_s, u"Bağdat Caddesi No: 114 Daire 6 Göztepe"_s},
      {u"MUSTERI_ILCE"_s, u"KADIKÖY / İSTANBUL"_s},
      {u"MUSTERI_YETKILI"_s, u"Çiğdem Güneş"_s},
      {u"MUSTERI_TELEFON"_s, u"0216 555 01 20"_s},
      {u"MUSTERI_TELEFON_2"_s, {}},
      {u"MUSTERI_CEP_TELEFON"_s, u"0532 555 01 21"_s},
      {u"MUSTERI_EPOSTA"_s, u"isik@ornek.com.tr"_s},
      {u"CIHAZ_GAR_BAS_TAR"_s, u"01.06.2025"_s},
      {u"CIHAZ_GAR_BIT_TAR"_s, u"01.06.2027"_s},
      {u"TESLIM_TARIH"_s, u"13.03.2026"_s},
      {u"NOTLAR"_s, u"Müşteri aranmadan işlem yapılmasın."_s},
      {u"ODEME_SEKLI"_s, u"KREDİ KARTI"_s},
      {u"KULLANICI_ADI"_s, u"AYŞE"_s},
      {u"KULLANICI_ISLEM_TARIH"_s, u"09.03.2026 14:05:11"_s},
      {u"SIRKET_ADI"_s, u"TORVANE BİLİŞİM TEKNİK SERVİS"_s},
      {u"SIRKET_ADRES"_s, u"ATATÜRK BULVARI NO: 48/3"_s},
      {u"SIRKET_ILCE"_s, u"ÇANKAYA"_s},
      {u"SIRKET_IL"_s, u"ANKARA"_s},
      {u"SIRKET_TEL"_s, u"0312 555 10 10"_s},
      {u"SIRKET_FAX"_s, u"0312 555 10 11"_s},
      {u"SIRKET_EPOSTA"_s, u"servis@torvane.example"_s},
      {u"SIRKET_WEB"_s, u"www.torvane.example"_s},
  };
  return texts;
}

enum class Kind { Usual, Long, Empty, Forty };

void declareAll(Report& report) {
  for (const auto& [name, text] : usualTexts()) report.data().declareVariable(name, {});
  for (const QString& name : {u"TAMIR_TUTAR"_s, u"SERVIS_TUTAR"_s, u"ISCILIK_TUTAR"_s, u"PARCA_TUTAR"_s}) report.data().declareVariable(name, {});
}

void fill(Report& report, Kind kind, int lines) {
  for (const auto& [name, text] : usualTexts()) {
    const QString shown = kind == Kind::Empty ? QString() : kind == Kind::Long && !text.isEmpty() ? (text + u' ').repeated(7).left(200) : text;
    report.data().setExpression(name, ReportData::quoted(shown));
    const QString barcode = kind == Kind::Long ? text.left(30) : shown;
    if (name == u"FIS_NO")
      for (const QString& object : {u"FIS_NO_BARKOD"_s, u"FIS_NO_BARKOD1"_s}) report.setBarcodeText(object, barcode);
    if (name == u"CIHAZ_DIS_SERI_NO") report.setBarcodeText(u"CIHAZ_DIS_SERI_BARKOD"_s, barcode);
  }
  if (kind != Kind::Empty) {
    report.data().setExpression(u"SERVIS_TUTAR"_s, u"350"_s);
    report.data().setExpression(u"ISCILIK_TUTAR"_s, u"1250.5"_s);
    report.data().setExpression(u"PARCA_TUTAR"_s, u"2899.9"_s);
    report.data().setExpression(u"TAMIR_TUTAR"_s, u"4500.4"_s);
  }
  report.data().addRows(u"Malzeme"_s, std::make_shared<PartLines>(lines, kind == Kind::Long));
}

/// The delivered contract's text with its placeholders replaced, from its bytes.
RichText mergedLetter(const QByteArray& bytes, Kind kind) {
  RichText text = RtfReader::read(bytes);
  const QString more = kind == Kind::Long ? u" SANAYİ VE TİCARET ANONİM ŞİRKETİ"_s.repeated(3) : QString();
  const std::pair<QString, QString> values[] = {
      {u"$musteri$"_s, u"ÖĞÜT MÜHENDİSLİK LTD. ŞTİ."_s + more},
      {u"$firma$"_s, u"TORVANE BİLİŞİM TEKNİK SERVİS"_s + more},
      {u"$firmaadres$"_s, u"ATATÜRK BULVARI NO: 48/3 ÇANKAYA ANKARA"_s + more},
      {u"$firmatelefon$"_s, u"Tel: 0312 555 10 10"_s},
      {u"$firmafaks$"_s, u"Fax: 0312 555 10 11"_s},
      {u"$sozbastar$"_s, u"01.01.2026"_s},
      {u"$sozbittar$"_s, u"31.12.2026"_s},
      {u"$tarih$"_s, u"22.12.2025"_s},
      {u"$tutar$"_s, u"48500 TL"_s},
      {u"$sozsure$"_s, u"364 GÜN"_s},
      {u"$donem$"_s, u"Aylık"_s},
  };
  for (const auto& [placeholder, value] : values) replaceInRichText(text, placeholder, kind == Kind::Empty ? QString() : value);
  return text;
}

QByteArray bytesOf(const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) qFatal("no %s", qPrintable(name));
  return file.readAll();
}

/// The delivered contract's articles so often that ten pages come of them.
QByteArray tenPages(const QByteArray& letter) {
  const qsizetype from = letter.indexOf("\\pard\\plain \\keepn");
  const qsizetype behind = letter.lastIndexOf("\\pard\\plain \\keepn");
  return letter.left(behind) + letter.mid(from, behind - from).repeated(5) + letter.mid(behind);
}

void pictures(const QString& templates, const QString& folder, const QString& only) {
  QDir().mkpath(folder);
  QStringList names;
  for (int number = 0; number < 16; ++number) names += QString::number(number);
  names += {u"barkod/etiket"_s, u"bakim"_s};
  const std::pair<Kind, QString> kinds[] = {{Kind::Usual, u"usual"_s}, {Kind::Long, u"long"_s}, {Kind::Empty, u"empty"_s}, {Kind::Forty, u"forty"_s}};
  if (!only.isEmpty()) names = {only};
  const QByteArray letter = bytesOf(templates + u"/bakim.rtf"_s);
  for (const QString& name : names)
    for (const auto& [kind, suffix] : kinds) {
      Report report;
      declareAll(report);
      report.load(templates + u'/' + name + u".fr3"_s);
      fill(report, kind, kind == Kind::Empty ? 0 : kind == Kind::Forty ? 40 : 3);
      report.setRichText(u"Rich1"_s, mergedLetter(letter, kind));
      const ReportPagedDocument made(report.prepare());
      for (const ReportFault& fault : made.pages().faults)
        qWarning().noquote() << name << suffix << fault.page << fault.object << fault.reason;
      for (int page = 0; page < made.pageCount(); ++page)
        pagePicture(made, page, picturesDpi, true)
            .save(u"%1/%2-%3-%4.png"_s.arg(folder, QString(name).replace(u'/', u'-'), suffix).arg(page + 1));
    }
}

void measure(const QString& templates) {
  Report receipt;
  declareAll(receipt);
  receipt.load(templates + u"/13.fr3"_s);
  fill(receipt, Kind::Usual, 20);
  ReportPages pages;
  figure(u"receipt_prepare_ms"_s, best([&] { pages = receipt.prepare(); }), "ms");
  const QTemporaryDir folder;
  const ReportPagedDocument document(pages);
  figure(u"receipt_pdf_ms"_s, best([&] { writePdf(document, folder.filePath(u"a.pdf"_s), u"Makbuz"_s); }), "ms");

  // What holds the screen up between the click and the queue; the print service is the one that bench/run has started.
  const PrintJob job{.printer = u"MAKBUZ"_s, .copies = 1, .documentName = u"Makbuz"_s};
  bool isPrinted = true;
  const double printing = best([&] { isPrinted &= printPages(ReportPagedDocument(receipt.prepare()), job); });
  if (isPrinted) figure(u"receipt_print_ms"_s, printing, "ms");

  Report label;
  declareAll(label);
  label.load(templates + u"/barkod/etiket.fr3"_s);
  fill(label, Kind::Usual, 0);
  figure(u"label_prepare_ms"_s, best([&] { label.prepare(); }), "ms");

  fill(receipt, Kind::Usual, 1000);
  figure(u"thousand_rows_prepare_ms"_s, best([&] { receipt.prepare(); }), "ms");

  // As a click does it: template, text and merging included.
  const QByteArray text = tenPages(bytesOf(templates + u"/bakim.rtf"_s));
  Report contract;
  const auto prepareLetter = [&] {
    contract.load(templates + u"/bakim.fr3"_s);
    contract.setRichText(u"Rich1"_s, mergedLetter(text, Kind::Usual));
    pages = contract.prepare();
  };
  figure(u"letter_prepare_ms"_s, best(prepareLetter), "ms");
  figure(u"letter_pages"_s, double(pages.pages.size()), "pages");

  fill(receipt, Kind::Usual, 20);
  figure(u"click_to_preview_ms"_s, best([&] {
           receipt.load(templates + u"/13.fr3"_s);
           fill(receipt, Kind::Usual, 20);
           PreviewWindow preview(nullptr, std::make_shared<ReportPagedDocument>(receipt.prepare()), {});
           preview.show();
           QCoreApplication::sendPostedEvents();
           preview.grab();
         }),
         "ms");

  double after50 = 0;
  for (int time = 1; time <= 500; ++time) {
    receipt.load(templates + u"/13.fr3"_s);
    fill(receipt, Kind::Usual, 20);
    const ReportPagedDocument made(receipt.prepare());
    pagePicture(made, 0, 96);
    if (time == 50) after50 = Measuring::residentMegabytes();
  }
  figure(u"memory_500_over_50_receipts"_s, Measuring::residentMegabytes() / after50, "ratio");
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setStyle(u"Fusion"_s);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2) qFatal("kvtk-bench-report TEMPLATES [FOLDER [NAME]]");
  if (arguments.size() > 2)
    pictures(arguments[1], arguments[2], arguments.value(3));
  else
    measure(arguments[1]);
}
