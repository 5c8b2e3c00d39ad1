#include "toolkit/grid/xls_export.h"

#include "base/data/value.h"
#include "base/exceptions.h"
#include "base/whole_file.h"
#include "toolkit/grid/biff_stream.h"
#include "toolkit/grid/table_content.h"
#include "toolkit/grid/xls_format.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>
#include <gsf/gsf-utils.h>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int mostRows = 65536;       ///< of a sheet
constexpr int mostColumns = 256;
constexpr int mostLetters = 32767;    ///< of a cell
constexpr double pixelsPerLetter = 7;
constexpr quint8 lowerPane = 2;
constexpr quint16 rowHeight = 300;    ///< twentieths of a point; capitals with dots and hooks are taller than the usual row

// Numbers of the records (Excel 97-2003 Binary File Format).
enum Record : quint16 {
  Bof = 0x0809, Eof = 0x000A, CodePage = 0x0042, Window1 = 0x003D, Font = 0x0031, Format = 0x041E, Xf = 0x00E0, Style = 0x0293,
  BoundSheet = 0x0085, Dimensions = 0x0200, ColInfo = 0x007D, Number = 0x0203, LabelSst = 0x00FD, Window2 = 0x023E, Pane = 0x0041,
  Selection = 0x001D, DefaultRowHeight = 0x0225,
};

constexpr int styleFormats = 15;  ///< formats that every workbook begins with
constexpr quint16 plainFont = 0;
constexpr quint16 boldFont = 5;   ///< number 4 is never used

/// How a cell looks; its place in the list, behind the style formats, is its number.
struct CellFormat {
  quint16 numberFormat = 0;
  bool bold = false;
  int indent = 0;
  bool toTheRight = false;
  bool operator==(const CellFormat&) const = default;
};

class Workbook {
 public:
  Workbook(const TableContent& content, const QString& name) : content_(content), name_(name) {}

  QByteArray stream() {
    for (int column = 0; column < content_.columnCount(); ++column) columns_.push_back(content_.column(column));
    if (columns_.size() > mostColumns) throw EInOutError(u"Bir sayfaya en çok %1 sütun sığar."_s.arg(mostColumns));
    formatOf({});
    writeSheets();
    BiffStream globals;
    std::vector<qsizetype> places;
    writeGlobals(globals, places);
    qsizetype begin = globals.size();
    for (size_t i = 0; i < sheets_.size(); ++i) {
      globals.patch(places[i], quint32(begin));
      begin += sheets_[i].size();
    }
    for (const BiffStream& sheet : sheets_) globals.append(sheet);
    return globals.bytes();
  }

 private:
  static void bof(BiffStream& stream, quint16 kind) {
    stream.begin(Bof);
    stream.word(0x0600);
    stream.word(kind);
    stream.word(0x0DBB);
    stream.word(0x07CC);
    stream.dword(0x00000041);
    stream.dword(0x00000006);
    stream.end();
  }

  quint16 formatOf(const CellFormat& format) {
    const auto known = std::find(formats_.begin(), formats_.end(), format);
    const auto number = known - formats_.begin();
    if (known == formats_.end()) formats_.push_back(format);
    return quint16(styleFormats + number);
  }

  quint16 numberFormatOf(const QString& code) {
    if (code.isEmpty()) return 0;
    const qsizetype known = codes_.indexOf(code);
    if (known >= 0) return quint16(XlsFormat::firstOwn + known);
    codes_ += code;
    return quint16(XlsFormat::firstOwn + codes_.size() - 1);
  }

  void writeSheets() {
    const int perSheet = mostRows - 1;
    int first = 0;
    do {
      const int last = std::min(content_.rowCount(), first + perSheet);
      writeSheet(first, last);
      first = last;
    } while (first < content_.rowCount());
  }

  void writeSheet(int first, int last) {
    BiffStream& sheet = sheets_.emplace_back();
    bof(sheet, 0x0010);
    sheet.begin(DefaultRowHeight);
    sheet.word(1);
    sheet.word(rowHeight);
    sheet.end();
    for (size_t column = 0; column < columns_.size(); ++column) {
      sheet.begin(ColInfo);
      sheet.word(quint16(column));
      sheet.word(quint16(column));
      sheet.word(quint16(std::clamp(columns_[column].width / pixelsPerLetter * 256, 256.0, 65000.0)));
      sheet.word(styleFormats);
      sheet.word(0);
      sheet.word(0);
      sheet.end();
    }
    sheet.begin(Dimensions);
    sheet.dword(0);
    sheet.dword(quint32(last - first + 1));
    sheet.word(0);
    sheet.word(quint16(columns_.size()));
    sheet.word(0);
    sheet.end();
    for (size_t column = 0; column < columns_.size(); ++column)
      writeText(sheet, 0, int(column), columns_[column].caption, formatOf({0, true, 0, columns_[column].alignsRight}));
    for (int row = first; row < last; ++row) writeRow(sheet, row, row - first + 1);
    sheet.begin(Window2);
    sheet.word(sheets_.size() == 1 ? 0x07BE : 0x01BE);  // one sheet alone is chosen; several would be edited together
    sheet.word(0);
    sheet.word(0);
    sheet.dword(64);
    sheet.word(0);
    sheet.word(0);
    sheet.dword(0);
    sheet.end();
    sheet.begin(Pane);  // the captions stay in view
    sheet.word(0);
    sheet.word(1);
    sheet.word(1);
    sheet.word(0);
    sheet.word(lowerPane);
    sheet.end();
    sheet.begin(Selection);
    sheet.byte(lowerPane);
    for (const quint16 value : std::initializer_list<quint16>{1, 0, 0, 1, 1, 1}) sheet.word(value);  // the first cell below the captions
    sheet.word(0);
    sheet.end();
    sheet.empty(Eof);
  }

  void writeRow(BiffStream& sheet, int row, int line) {
    const ContentRowKind kind = content_.rowKind(row);
    if (kind == ContentRowKind::Group) {
      const QString text = content_.groupText(row);
      checkLength(text, row, 0);
      writeText(sheet, line, 0, text, formatOf({0, true, std::min(content_.level(row), 15), false}));
      return;
    }
    for (size_t column = 0; column < columns_.size(); ++column) writeCell(sheet, row, line, int(column), kind != ContentRowKind::Data);
  }

  void writeCell(BiffStream& sheet, int row, int line, int column, bool bold) {
    const Value value = content_.value(row, column);
    if (value.isNull()) return;
    if (const auto number = XlsFormat::numberOf(value)) {
      const QString& display = columns_[size_t(column)].displayFormat;
      const QString code = number->format.isEmpty() ? XlsFormat::codeOf(display) : number->format;
      sheet.begin(Number);
      sheet.word(quint16(line));
      sheet.word(quint16(column));
      sheet.word(formatOf({numberFormatOf(code), bold, 0, false}));
      sheet.real(number->value);
      sheet.end();
      return;
    }
    const auto* text = std::get_if<QString>(&value.data());
    const QString shown = text != nullptr ? *text : content_.text(row, column);
    checkLength(shown, row, column);
    if (!shown.isEmpty()) writeText(sheet, line, column, shown, formatOf({0, bold, 0, false}));
  }

  void checkLength(const QString& text, int row, int column) const {
    if (text.size() <= mostLetters) return;
    throw EInOutError(u"\"%1\" sütununun %2. satırındaki metin bir hücreye sığmıyor (en çok %3 karakter)."_s
                          .arg(columns_[size_t(column)].caption)
                          .arg(row + 1)
                          .arg(mostLetters));
  }

  void writeText(BiffStream& sheet, int line, int column, const QString& text, quint16 format) {
    sheet.begin(LabelSst);
    sheet.word(quint16(line));
    sheet.word(quint16(column));
    sheet.word(format);
    sheet.dword(quint32(texts_.numberOf(text)));
    sheet.end();
  }

  static void writeFont(BiffStream& stream, bool bold) {
    stream.begin(Font);
    stream.word(200);  // twentieths of a point
    stream.word(0);
    stream.word(0x7FFF);
    stream.word(bold ? 700 : 400);
    stream.word(0);
    stream.byte(0);
    stream.byte(2);
    stream.byte(0xA2);  // Turkish
    stream.byte(0);
    stream.shortText(u"Arial"_s);
    stream.end();
  }

  static void writeXf(BiffStream& stream, const CellFormat& format, bool isStyle) {
    stream.begin(Xf);
    stream.word(format.bold ? boldFont : plainFont);
    stream.word(format.numberFormat);
    stream.word(isStyle ? 0xFFF5 : 0x0001);
    stream.byte(quint8(0x20 | (format.toTheRight ? 3 : format.indent > 0 ? 1 : 0)));
    stream.byte(0);
    stream.byte(quint8(format.indent));
    stream.byte(isStyle ? 0xF4 : 0x1C);
    stream.dword(0);
    stream.dword(0);
    stream.word(0x20C0);
    stream.end();
  }

  void writeGlobals(BiffStream& stream, std::vector<qsizetype>& places) {
    bof(stream, 0x0005);
    stream.begin(CodePage);
    stream.word(1200);
    stream.end();
    stream.begin(Window1);
    for (const quint16 value : std::initializer_list<quint16>{0, 0, 0x3A98, 0x2328, 0x0038, 0, 0, 1, 0x0258}) stream.word(value);
    stream.end();
    for (int i = 0; i < 4; ++i) writeFont(stream, false);
    writeFont(stream, true);
    for (qsizetype i = 0; i < codes_.size(); ++i) {
      stream.begin(Format);
      stream.word(quint16(XlsFormat::firstOwn + i));
      stream.longText(codes_[i]);
      stream.end();
    }
    for (int i = 0; i < styleFormats; ++i) writeXf(stream, {}, true);
    for (const CellFormat& format : formats_) writeXf(stream, format, false);
    stream.begin(Style);
    stream.word(0x8000);
    stream.byte(0);
    stream.byte(0xFF);
    stream.end();
    for (size_t i = 0; i < sheets_.size(); ++i) {
      stream.begin(BoundSheet);
      places.push_back(stream.size());
      stream.dword(0);
      stream.word(0);
      stream.shortText(XlsFormat::sheetName(name_, int(i)));
      stream.end();
    }
    texts_.write(stream);
    stream.empty(Eof);
  }

  const TableContent& content_;
  QString name_;
  std::vector<ContentColumn> columns_;
  std::vector<CellFormat> formats_;
  QStringList codes_;
  std::vector<BiffStream> sheets_;
  BiffTexts texts_;
};

/// The workbook's stream in its container.
QByteArray inContainer(const QByteArray& workbook) {
  gsf_init();
  GsfOutput* memory = gsf_output_memory_new();
  GsfOutfile* container = gsf_outfile_msole_new(memory);
  GsfOutput* stream = gsf_outfile_new_child(container, "Workbook", FALSE);
  const bool written = gsf_output_write(stream, size_t(workbook.size()), reinterpret_cast<const guint8*>(workbook.constData())) &&
                       gsf_output_close(stream) && gsf_output_close(GSF_OUTPUT(container));
  QByteArray bytes;
  if (written)
    bytes = QByteArray(reinterpret_cast<const char*>(gsf_output_memory_get_bytes(GSF_OUTPUT_MEMORY(memory))), qsizetype(gsf_output_size(memory)));
  g_object_unref(stream);
  g_object_unref(container);
  g_object_unref(memory);
  if (!written) throw EInOutError(u"Excel dosyası oluşturulamadı."_s);
  return bytes;
}

}  // namespace

void exportXls(const TableContent& content, const QString& sheetName, const QString& file) {
  WholeFile::replace(file, inContainer(Workbook(content, sheetName).stream()));
}
