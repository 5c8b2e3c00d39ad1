#include "base/data/value.h"
#include "base/exceptions.h"
#include "tests/support/screen_test.h"
#include "tests/toolkit/listed_content.h"
#include "toolkit/grid/xls_export.h"
#include "toolkit/grid/xls_format.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input-memory.h>

#include <cstring>

namespace {

/// A workbook read back by the file format's own description, not by the code that wrote it.
class ReadBack {
 public:
  explicit ReadBack(const QString& file) {
    const QByteArray bytes = contentOf(file);
    GsfInput* memory = gsf_input_memory_new(reinterpret_cast<const guint8*>(bytes.constData()), bytes.size(), FALSE);
    GsfInfile* container = gsf_infile_msole_new(memory, nullptr);
    if (container == nullptr) return;
    GsfInput* stream = gsf_infile_child_by_name(container, "Workbook");
    const auto size = gsf_input_size(stream);
    stream_ = QByteArray(reinterpret_cast<const char*>(gsf_input_read(stream, size_t(size), nullptr)), qsizetype(size));
    g_object_unref(stream);
    g_object_unref(container);
    g_object_unref(memory);
    readGlobals();
  }

  QStringList sheets;
  /// Row and column of each sheet to the value.
  std::vector<QMap<QPair<int, int>, QVariant>> cells;
  /// How the first sheet's cells look: the code of their number format, "*" behind it for bold.
  QMap<QPair<int, int>, QString> looks;
  QStringList chosenSheets;

 private:
  quint16 word(qsizetype at) const { return qFromLittleEndian<quint16>(stream_.constData() + at); }
  quint32 dword(qsizetype at) const { return qFromLittleEndian<quint32>(stream_.constData() + at); }

  QString letters(qsizetype at, int count, bool wide) const {
    QString text;
    for (int i = 0; i < count; ++i) text += wide ? QChar(word(at + 2 * i)) : QChar(char16_t(uchar(stream_[at + i])));
    return text;
  }

  void readGlobals() {
    std::vector<qsizetype> begins;
    for (qsizetype at = 0; at < stream_.size(); at += 4 + word(at + 2)) {
      const quint16 number = word(at);
      const qsizetype data = at + 4;
      if (number == 0x0085) {
        begins.push_back(dword(data));
        sheets += letters(data + 8, uchar(stream_[data + 6]), stream_[data + 7] & 1);
      } else if (number == 0x041E) {
        codes_[word(data)] = letters(data + 5, word(data + 2), stream_[data + 4] & 1);
      } else if (number == 0x0031) {
        if (weights_.size() == 4) weights_.push_back(0);  // a font numbered 4 is never there
        weights_.push_back(word(data + 6));
      } else if (number == 0x00E0) {
        formats_ += codes_.value(word(data + 2)) + (weights_.at(word(data)) == 700 ? u"*"_s : QString());
      } else if (number == 0x00FC) {
        readTexts(at);
      } else if (number == 0x000A) {
        break;
      }
    }
    for (const qsizetype begin : begins) readSheet(begin);
  }

  void readTexts(qsizetype record) {
    qsizetype at = record + 4;
    qsizetype end = at + word(record + 2);
    const quint32 count = dword(at + 4);
    at += 8;
    const auto next = [&] {
      EXPECT_EQ(word(end), 0x003C);
      at = end + 4;
      end = at + word(end + 2);
    };
    for (quint32 i = 0; i < count; ++i) {
      if (at == end) next();
      int left = word(at);
      bool wide = stream_[at + 2] & 1;
      at += 3;
      QString text;
      while (left > 0) {
        if (at == end) {
          next();
          wide = stream_[at++] & 1;
        }
        const int fit = std::min<int>(left, int(end - at) / (wide ? 2 : 1));
        text += letters(at, fit, wide);
        at += fit * (wide ? 2 : 1);
        left -= fit;
      }
      texts_ += text;
    }
  }

  void readSheet(qsizetype begin) {
    auto& sheet = cells.emplace_back();
    for (qsizetype at = begin; word(at) != 0x000A; at += 4 + word(at + 2)) {
      const qsizetype data = at + 4;
      const QPair<int, int> place(word(data), word(data + 2));
      const bool isCell = word(at) == 0x0203 || word(at) == 0x00FD;
      if (isCell && cells.size() == 1) looks.insert(place, formats_.at(word(data + 4)));
      if (word(at) == 0x023E && (word(data) & 0x0200)) chosenSheets += sheets[qsizetype(cells.size()) - 1];
      if (word(at) == 0x0203) {
        double number = 0;
        const quint64 bits = qFromLittleEndian<quint64>(stream_.constData() + data + 6);
        std::memcpy(&number, &bits, sizeof number);
        sheet.insert(place, number);
      } else if (word(at) == 0x00FD) {
        sheet.insert(place, texts_[dword(data + 6)]);
      }
    }
  }

  QByteArray stream_;
  QStringList texts_;
  QMap<quint16, QString> codes_;
  std::vector<quint16> weights_;
  QStringList formats_;
};

class XlsTest : public testing::Test {
 protected:
  QTemporaryDir folder;
  QString file = folder.filePath(u"Çıktı.xls"_s);
  ListedContent content;
};

}  // namespace

TEST_F(XlsTest, ValuesReadBackEqualAndOfTheirKind) {
  content.columns = {{u"MÜŞTERİ"_s, 120}, {u"TUTAR"_s, 80, true, u",0.00;-,0.00"_s}, {u"TARİH"_s, 90}};
  content.rows = {
      {ContentRowKind::Group, {}, u"DURUM: AÇIK (3)"_s, 1},
      {ContentRowKind::Data, {u"IŞIK ĞÜŞİÖÇ ığüşiöç € “”"_s, 1250.5, QDate(2026, 3, 5)}},
      {ContentRowKind::Data, {u"=1+1"_s, Decimal{u"-0.125"_s}, QDateTime(QDate(2026, 3, 5), QTime(18, 0))}},
      {ContentRowKind::Data, {Value(), qint64(9007199254740993), QTime(6, 0)}},
      {ContentRowKind::Data, {u"satır\nsonu"_s, Value(), QDate(1899, 5, 1)}},
      {ContentRowKind::Footer, {4, 1250.375}},
  };
  exportXls(content, u"Servis Fişleri [1/2]"_s, file);
  const ReadBack read(file);
  ASSERT_EQ(read.sheets, QStringList{u"Servis Fişleri 12"_s});
  const auto& cells = read.cells[0];
  EXPECT_EQ(cells[qMakePair(0, 0)], u"MÜŞTERİ"_s);
  EXPECT_EQ(cells[qMakePair(1, 0)], u"DURUM: AÇIK (3)"_s);
  EXPECT_EQ(cells[qMakePair(2, 0)], u"IŞIK ĞÜŞİÖÇ ığüşiöç € “”"_s);
  EXPECT_EQ(cells[qMakePair(2, 1)], 1250.5);
  EXPECT_EQ(cells[qMakePair(2, 2)], 46086.0) << "the fifth of March 2026, counted by hand";
  EXPECT_EQ(cells[qMakePair(3, 0)], u"=1+1"_s) << "a text, not a formula";
  EXPECT_EQ(cells[qMakePair(3, 1)], -0.125);
  EXPECT_EQ(cells[qMakePair(3, 2)], 46086.75);
  EXPECT_EQ(cells[qMakePair(4, 1)], u"9007199254740993"_s) << "a double would change it";
  EXPECT_EQ(cells[qMakePair(4, 2)], 0.25);
  EXPECT_FALSE(cells.contains(qMakePair(4, 0)));
  EXPECT_EQ(cells[qMakePair(5, 0)], u"satır\nsonu"_s);
  EXPECT_EQ(cells[qMakePair(5, 2)], u"01.05.1899"_s) << "before the spreadsheet's calendar";
  EXPECT_EQ(cells[qMakePair(6, 1)], 1250.375);
  const QString amount = u"#,##0.00;-#,##0.00"_s;
  for (const auto& [row, column, look] : {std::tuple(0, 0, u"*"_s), {1, 0, u"*"_s}, {2, 0, u""_s}, {2, 1, amount}, {2, 2, u"dd\\.mm\\.yyyy"_s},
                                          {3, 2, u"dd\\.mm\\.yyyy hh:mm:ss"_s}, {4, 2, u"hh:mm:ss"_s}, {6, 1, amount + u'*'}})
    EXPECT_EQ(read.looks[qMakePair(row, column)], look) << row << ',' << column;
}

TEST_F(XlsTest, TextsThatFillRecordsStayWhole) {
  // Long and short ones, narrow and wide, so that breaks fall before, within and behind them.
  content.columns = {{u"NOT"_s}};
  QStringList texts;
  for (int i = 0; i < 400; ++i) texts += QString(37 * i % 1500, i % 3 == 0 ? u'ş' : u'a') + QString::number(i);
  texts += QString(32767, u'ğ');
  for (const QString& text : texts) content.rows.push_back({ContentRowKind::Data, {text}});
  exportXls(content, u"Notlar"_s, file);
  const ReadBack read(file);
  for (int i = 0; i < texts.size(); ++i) ASSERT_EQ(read.cells[0][qMakePair(i + 1, 0)], texts[i]) << i;

  content.rows.push_back({ContentRowKind::Data, {QString(32768, u'x')}});
  try {
    exportXls(content, u"Notlar"_s, file);
    FAIL() << "a text was cut";
  } catch (const EInOutError& error) {
    EXPECT_THAT(error.message().toStdString(), testing::HasSubstr("\"NOT\" sütununun 402. satırındaki"));
  }
  EXPECT_EQ(ReadBack(file).cells[0].size(), texts.size() + 1) << "the file before it stands";
}

TEST_F(XlsTest, MoreRowsThanASheetHoldsGoOnInAnother) {
  content.columns = {{u"NO"_s}, {u"AD"_s}};
  for (int i = 0; i < 70000; ++i) content.rows.push_back({ContentRowKind::Data, {i, u"AD %1"_s.arg(i % 7)}});
  exportXls(content, u"Bir sayfanın adı olamayacak kadar uzun"_s, file);
  const ReadBack read(file);
  ASSERT_EQ(read.sheets, (QStringList{u"Bir sayfanın adı olamayacak kad"_s, u"Bir sayfanın adı olamayacak (2)"_s}));
  EXPECT_EQ(read.chosenSheets, QStringList{read.sheets[0]}) << "sheets chosen together are edited together";
  EXPECT_EQ(read.cells[0].size(), 65536 * 2);
  EXPECT_EQ(read.cells[1][qMakePair(0, 1)], u"AD"_s);
  EXPECT_EQ(read.cells[1][qMakePair(1, 0)], 65535.0);
  EXPECT_EQ(read.cells[1].lastKey(), qMakePair(70000 - 65535, 1));
}

TEST_F(XlsTest, AnEmptyTableAndFilesThatCannotBeWritten) {
  content.columns = {{u"NO"_s}};
  exportXls(content, {}, file);
  EXPECT_EQ(ReadBack(file).sheets, QStringList{u"Sayfa"_s});
  ASSERT_TRUE(QDir(folder.path()).mkdir(u"klasör.xls"_s));
  const QPair<QString, const char*> cases[] = {{folder.filePath(u"yok/a.xls"_s), "klasör bulunamadı"},
                                               {folder.filePath(u"klasör.xls"_s), "bu ad bir dosyanın değil"}};
  for (const auto& [place, reason] : cases) {
    try {
      exportXls(content, u"A"_s, place);
      ADD_FAILURE() << qPrintable(place);
    } catch (const EInOutError& error) {
      EXPECT_THAT(error.message().toStdString(), testing::HasSubstr(reason));
    }
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"Çıktı.xls"_s}) << "nothing half-written stays";
}

TEST(XlsFormatTest, DisplayFormatsBecomeTheSpreadsheetsCodes) {
  const QPair<QString, QString> cases[] = {{u",0.00;-,0.00"_s, u"#,##0.00;-#,##0.00"_s},
                                           {u",0.##"_s, u"#,##0.##"_s},
                                           {u",0 KM;-,0 KM;0"_s, u"#,##0\" KM\";-#,##0\" KM\";0"_s},
                                           {u",0.00 (B);,0.00 (A);0"_s, u"#,##0.00\" (B)\";#,##0.00\" (A)\";0"_s},
                                           {{}, {}}};
  for (const auto& [display, code] : cases) EXPECT_EQ(XlsFormat::codeOf(display), code) << qPrintable(display);
}
