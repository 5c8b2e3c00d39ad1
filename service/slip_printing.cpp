#include "service/slip_printing.h"

#include "app/parameters.h"
#include "app/ports.h"
#include "app/quendUtils.h"
#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/number_text.h"
#include "service/slip_hooks.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/report/designer/design_sample.h"
#include "toolkit/report/report_output.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

enum class Source { Slip, SlipNumber, Note, Company };
enum Paper { Receipt = 1, Label = 2, Both = 3 };

struct Name {
  QStringView variable;
  QStringView column;
  QStringView explanation;
  Source source = Source::Slip;
  int papers = Both;
};

/// Several names carry one column: templates written against either keep working; meant.
constexpr Name Names[] = {
    {u"FIS_NO", u"TS_NO", u"Fiş numarası"},
    {u"FIS_TURU", u"TS_TURU", u"İşlem durumu", Source::Slip, Receipt},
    {u"FIS_TARIH", u"TS_TARIH", u"Fiş tarihi"},
    {u"RANDEVU_TARIH", u"TS_RANDEVU", u"Randevu tarihi"},
    {u"TEKNISYEN_ADI", u"TS_TEKNISYEN", u"Teknisyen"},
    {u"FIS_TESLIM_TARIH", u"TS_TESLIM_TARIH", u"Teslim tarihi"},
    {u"FIS_ACIKLAMA", u"TS_ACIKLAMA", u"Fiş açıklaması"},
    {u"FIS_OZELK_KODU", u"TS_OZELKOD", u"Özel kod"},
    {u"FIS_FATURA_NO", u"TS_FATURANO", u"Fatura numarası"},
    {u"SERVIS_TIPI", u"TS_SERVIS_TIP", u"Servis tipi"},
    {u"HIZMET_TIPI", u"TS_HIZMET_TIP", u"Hizmet tipi", Source::Slip, Receipt},
    {u"GARANTI_DURUM", u"TS_HIZMET_TIP", u"Garanti durumu"},
    {u"CIHAZ_TANIMI", u"TS_C_AD", u"Cihazın adı"},
    {u"CIHAZ_DIS_SERI_NO", u"TS_C_SERINO", u"Dış seri numarası"},
    {u"CIHAZ_IC_SERI_NO", u"TS_C_RAFNO", u"İç seri numarası"},
    {u"CIHAZ_DIS_MODEL_NO", u"TS_C_MARKA", u"Dış model numarası"},
    {u"CIHAZ_IC_MODEL_NO", u"TS_C_TURU", u"İç model numarası"},
    {u"CIHAZ_URETICI", u"TS_C_TURU", u"Cihazın üreticisi"},
    {u"CIHAZ_EK_BIRIMLER", u"TS_C_EKPARCA", u"Birlikte alınan parçalar"},
    {u"CIHAZ_SIKAYET", u"TS_C_SIKAYET", u"Arıza tanımı"},
    {u"CIHAZ_TEKNIK_RAPOR", u"TS_C_TEKNISYEN_NOT", u"Teknik rapor"},
    {u"MUSTERI_ADI", u"TS_MUSTERI", u"Müşterinin adı"},
    {u"MUSTERI_UNVAN", u"TS_UNVAN", u"Müşterinin ünvanı"},
    {u"MUSTERI_NO", u"TS_M_NO", u"Müşteri numarası"},
    {u"MUSTERI_ADRES", u"TS_ADRES", u"Müşterinin adresi"},
    {u"MUSTERI_ILCE", u"TS_ILCE", u"Müşterinin ilçesi ve ili"},
    {u"MUSTERI_YETKILI", u"TS_YETKILI", u"Müşterinin yetkilisi"},
    {u"MUSTERI_TELEFON", u"TS_TEL", u"Telefon"},
    {u"MUSTERI_TELEFON_2", u"TS_TEL2", u"İkinci telefon"},
    {u"MUSTERI_CEP_TELEFON", u"TS_CEP", u"Cep telefonu"},
    {u"MUSTERI_EPOSTA", u"TS_EPOSTA", u"E-posta adresi"},
    {u"CIHAZ_GAR_BAS_TAR", u"TS_C_GARBASTAR", u"Garantinin başlama tarihi"},
    {u"CIHAZ_GAR_BIT_TAR", u"TS_C_GARBITTAR", u"Garantinin bitiş tarihi"},
    {u"TESLIM_TARIH", u"TS_TESLIM_TARIH", u"Teslim tarihi"},
    {u"NOTLAR", u"SF_NOT", u"Fişin notları", Source::Note, Receipt},
    {u"TAMIR_TUTAR", u"TS_TUTAR", u"Toplam tutar", Source::SlipNumber},
    {u"ODEME_SEKLI", u"TS_ODEME_SEKLI", u"Ödeme şekli"},
    {u"SERVIS_TUTAR", u"TS_SERVIS_TUTAR", u"Servis tutarı", Source::SlipNumber},
    {u"ISCILIK_TUTAR", u"TS_ISCILIK_TUTAR", u"İşçilik tutarı", Source::SlipNumber},
    {u"PARCA_TUTAR", u"TS_PARCA_TUTAR", u"Parça tutarı", Source::SlipNumber},
    {u"KULLANICI_ADI", u"TS_USER", u"Son kaydeden kullanıcı"},
    {u"KULLANICI_ISLEM_TARIH", u"TS_USER_TIME", u"Son kayıt zamanı"},
    {u"SIRKET_ADI", u"SIRKET_ADI", u"Şirketin adı", Source::Company},
    {u"SIRKET_ADRES", u"SIRKET_ADRES", u"Şirketin adresi", Source::Company},
    {u"SIRKET_ILCE", u"SIRKET_ILCE", u"Şirketin ilçesi", Source::Company},
    {u"SIRKET_IL", u"SIRKET_IL", u"Şirketin ili", Source::Company},
    {u"SIRKET_TEL", u"SIRKET_TEL", u"Şirketin telefonu", Source::Company},
    {u"SIRKET_FAX", u"SIRKET_FAX", u"Şirketin faksı", Source::Company},
    {u"SIRKET_EPOSTA", u"SIRKET_EPOSTA", u"Şirketin e-posta adresi", Source::Company},
    {u"SIRKET_WEB", u"SIRKET_WEB", u"Şirketin web adresi", Source::Company}};

/// Barcodes that a template may hold.
struct Barcode {
  QStringView object;
  QStringView column;
  int papers;
};
constexpr Barcode Barcodes[] = {{u"CIHAZ_DIS_SERI_BARKOD", u"TS_C_SERINO", Both}, {u"CIHAZ_DIS_SERI_BARKOD1", u"TS_C_SERINO", Receipt},
                                {u"CIHAZ_IC_SERI_BARKOD", u"TS_C_RAFNO", Both},   {u"CIHAZ_IC_SERI_BARKOD1", u"TS_C_RAFNO", Receipt},
                                {u"FIS_NO_BARKOD", u"TS_NO", Receipt},            {u"FIS_NO_BARKOD1", u"TS_NO", Receipt}};

/// Makes every name known that receipts and labels may use, whether or not this paper sets it.
void declareNames(ReportData& data) {
  for (const Name& name : Names) data.declareVariable(name.variable.toString(), name.explanation.toString());
}

ReportValue reportValue(const Value& value) {
  if (value.isNull()) return {};
  if (std::holds_alternative<double>(value.data()) || std::holds_alternative<Decimal>(value.data()) ||
      std::holds_alternative<qint64>(value.data()))
    return value.toDouble();
  return value.toText();
}

/// A slip's lines as they are when it is printed, those not saved yet among them.
class PrintedLines : public ReportRows {
 public:
  explicit PrintedLines(const TMyQuery& lines) {
    for (int field = 0; field < lines.fieldCount(); ++field) fields_ += lines.fieldInfo(field).name;
    for (int row = 0; row < lines.RecordCount(); ++row) {
      rows_.emplace_back();
      for (int field = 0; field < lines.fieldCount(); ++field) rows_.back().push_back(reportValue(lines.valueAt(row, field)));
    }
  }
  QStringList fields() const override { return fields_; }
  int rowCount() const override { return int(rows_.size()); }
  ReportValue value(int row, int field) const override { return rows_[size_t(row)][size_t(field)]; }

 private:
  QStringList fields_;
  std::vector<std::vector<ReportValue>> rows_;
};

void setBarcodes(Report& report, const SlipScreen& slip, Paper paper) {
  for (const Barcode& each : Barcodes)
    if (each.papers & paper) report.setBarcodeText(each.object.toString(), slip.text(each.column.toString()));
}

/// An amount as a literal of the expressions. Throws EConvertError.
QString numberLiteral(const QString& amount) {
  const auto number = NumberText::toDecimal(QuendUtil->StrToFloat_Universal(amount));
  if (!number) throw EConvertError(u"\"%1\" bir sayı değil."_s.arg(amount));
  return *number;
}

void setVariables(ReportData& data, const SlipScreen& slip, Paper paper) {
  for (const Name& name : Names) {
    if (!(name.papers & paper)) continue;
    const QString column = name.column.toString();
    if (name.source == Source::SlipNumber) {
      if (slip.text(column).isEmpty()) continue;  // stays unset
      // On the label the labour amount asks for itself and takes the service amount: meant.
      const bool takesService = paper == Label && column == "TS_ISCILIK_TUTAR"_L1;
      data.setExpression(name.variable.toString(), numberLiteral(slip.text(takesService ? u"TS_SERVIS_TUTAR"_s : column)));
      continue;
    }
    const QString text = name.source == Source::Company ? ports().companyText(column)
                         : name.source == Source::Note  ? slip.noteText()
                                                        : slip.text(column);
    data.setExpression(name.variable.toString(), ReportData::quoted(text));
  }
}

/// The receipt of the slip's status.
QString receiptFile(const SlipScreen& slip) {
  const int number = fParametreler->isChecked(ParameterFiles::ReceiptPerStatus) ? slip.statusIndex() : 0;
  return u"%1rapor/%2.fr3"_s.arg(QuendUtil->programFolder).arg(number);
}

QString caption(Paper paper) { return paper == Receipt ? u"Arıza formu"_s : u"Barkod etiket"_s; }

/// What a paper of a slip is called among the printer's jobs and as a file.
QString documentName(const SlipScreen& slip, Paper paper) { return u"%1 %2"_s.arg(caption(paper), slip.text(u"TS_NO"_s)).trimmed(); }

/// What a designed paper is shown with: what it would print now.
DesignSample sampleOf(const SlipScreen& slip, Paper paper) {
  DesignSample sample;
  // Offered is what this paper fills; a name of the other paper stays empty on it.
  for (const Name& name : Names)
    if (name.papers & paper) sample.data.declareVariable(name.variable.toString(), name.explanation.toString());
  for (const Barcode& each : Barcodes)
    if (each.papers & paper) sample.barcodes.insert(each.object.toString(), slip.text(each.column.toString()));
  try {
    setVariables(sample.data, slip, paper);
  } catch (const EConvertError& error) {
    logMessage(u"Tasarım verileri"_s, &error);  // an amount that is no number keeps nobody from designing
  }
  sample.printer = (paper == Receipt ? fParametreler->VarsayilanPrinter : fParametreler->yBarkodPrinter)->text();
  sample.documentName = documentName(slip, paper);
  if (paper == Receipt) sample.data.addRows(u"Malzeme"_s, std::make_shared<PrintedLines>(slip.lines()), u"Fişin malzemeleri"_s);
  return sample;
}

void choosePrinter(Report& report, const ComboEdit* printer, const ComboEdit* copies) {
  bool isNumber = false;
  const int count = copies->text().toInt(&isNumber);
  report.printer = printer->text();
  report.copies = isNumber ? count : 1;
}

/// Prints without a dialog, and tells in the status bar that it went to the printer; a refusal is told nowhere on the screen.
void print(const SlipScreen& slip, const Report& report, Paper paper) {
  if (printReport(report, documentName(slip, paper))) ports().setStatusText(u"%1 %2 yazıcısına gönderildi..."_s.arg(caption(paper), report.printer));
}

}  // namespace

void SlipPrinting::printReceipt(SlipScreen& slip) {
  const QString file = receiptFile(slip);
  if (!QFileInfo::exists(file)) {
    QuendUtil->ErrorMesaj(slip.dialogOwner(), u"Rapor dosyası bulunamadı."_s);
    return;
  }
  Report& report = *ports().report();
  declareNames(report.data());
  report.load(file);
  try {
    setBarcodes(report, slip, Receipt);
    setVariables(report.data(), slip, Receipt);
  } catch (const Exception& error) {
    logMessage(u"Makbuz alanları"_s, &error);  // printed with what was set: meant
  }
  report.data().addRows(u"Malzeme"_s, std::make_shared<PrintedLines>(slip.lines()), u"Fişin malzemeleri"_s);
  choosePrinter(report, fParametreler->VarsayilanPrinter, fParametreler->VarsayilanPrinterCopyNum);
  if (!fParametreler->isChecked(ParameterFiles::PreviewReceipt)) return print(slip, report, Receipt);
  showReport(slip.dialogOwner(), report, documentName(slip, Receipt));
}

void SlipPrinting::printLabel(SlipScreen& slip) {
  Report& report = *ports().report();
  declareNames(report.data());
  report.loadIfThere(u"rapor/barkod/etiket.fr3"_s);  // of the current folder; a missing one is told nowhere: meant
  setBarcodes(report, slip, Label);
  setVariables(report.data(), slip, Label);
  choosePrinter(report, fParametreler->yBarkodPrinter, fParametreler->yBarkodPrinterCopyNum);
  print(slip, report, Label);
}

void SlipPrinting::designReceipt(SlipScreen& slip) { ports().designReport(receiptFile(slip), sampleOf(slip, Receipt)); }

void SlipPrinting::designLabel(SlipScreen& slip) {
  ports().designReport(QuendUtil->programFolder + u"rapor/barkod/etiket.fr3"_s, sampleOf(slip, Label));
}
