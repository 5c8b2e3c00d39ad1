// Throws damaged letters at the reader of rich text, the merge and the layout. KVTK_FUZZ_SECONDS says how long, KVTK_FUZZ_SEED
// which.
#include "toolkit/report/rich_layout.h"
#include "toolkit/rtf/rich_replace.h"
#include "toolkit/rtf/rtf_reader.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QImage>

#include <iostream>
#include <random>

using namespace Qt::StringLiterals;

namespace {

QByteArray pictureHex(const char* format) {
  QImage image(5, 3, QImage::Format_RGB32);
  image.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  image.save(&buffer, format);
  return bytes.toHex();
}

/// What the reader takes well, to be damaged.
const QByteArrayList& samples() {
  static const QByteArrayList made = [] {
    QFile contract(QStringLiteral(KVTK_TEMPLATES) + u"/bakim.rtf"_s);
    contract.open(QIODevice::ReadOnly);
    const QByteArray head = R"({\rtf1\ansi\ansicpg1254\uc1\deff0{\fonttbl{\f0\fswiss\fcharset162 Arial;}{\f1\fcharset2 Symbol;}{\f2\fcharset0\cpg65001 U;}}{\colortbl;\red9\green200\blue7;})";
    return QByteArrayList{
        contract.readAll(),
        head + R"(\pard\qj\fi-567\li1134\tx1134\tqr\tx8000 {\b $mus}{\i ter\u304\'dd$}\tab \u-10179?\u-8704?\f2\'c4\'b0\par{\listtext\f1\'b7\tab}\sl-240 a\page\pagebb b\par})",
        head + R"(\trowd\trgaph108\trleft-108\trrh300\clvmgf\clbrdrt\brdrs\clcbpat1\cellx2000\clmgf\cellx3000\clmrg\cellx4000\intbl a\cell b\cell c\cell\row
\trowd\clvmrg\cellx2000\cellx4000\intbl\cell $firma$\par\cell\row\pard\brdrb\brdrs son\super 2\par})",
        head + "{\\*\\shppict{\\pict\\picscalex120\\picwgoal700\\pichgoal300\\pngblip " + pictureHex("png") + "}}{\\shp{\\*\\shpinst{\\sp{\\sv {\\pict\\jpegblip " + pictureHex("jpg") +
            "}}}{\\shptxt kutu\\par}}}{\\pict\\pngblip\\bin12 012345678901}}",
        "{\\rtf1" + QByteArray(290, '{') + 'x' + QByteArray(291, '}'),
        {},
    };
  }();
  return made;
}

class Damage {
 public:
  explicit Damage(quint64 seed) : random_(seed) {}

  int below(qsizetype bound) { return int(random_() % quint64(bound)); }

  QByteArray bytes() {
    QByteArray text = samples()[below(samples().size())];
    for (int hits = below(8); hits > 0; --hits) {
      const int at = below(text.size() + 1);
      switch (below(6)) {
        case 0: text.remove(at, below(8)); break;
        case 1: text.insert(at, char(below(256))); break;
        case 2: text.insert(at, text.mid(below(text.size() + 1), below(200))); break;
        case 3:
          if (below(4) == 0) text.truncate(at);
          break;
        case 4: {
          // Another number behind a word.
          const QByteArrayList numbers{"-1", "0", "32767", "-32768", "99999999999", "2147483647"};
          const qsizetype word = text.indexOf('\\', at);
          qsizetype digits = word;
          while (digits >= 0 && digits < text.size() && text[digits] != ' ' && !(text[digits] >= '0' && text[digits] <= '9')) ++digits;
          if (word >= 0) text.insert(digits, numbers[below(numbers.size())]);
          break;
        }
        default: {
          static const QByteArrayList marks{"{", "}", "\\", "\\'", "\\u", "\\*", "{\\*\\", "\\cell ", "\\row ", "\\par ", "\\trowd ", "\\pard ", "\\page ", "\\sect ", "\\bin9 ",
                                            "\\uc0 ", "\\fs1 ", "\\fs800 ", "\\li30000 ", "\\ri30000 ", "\\fi-30000 ", "\\sl-1 ", "\\sb30000 ", "\\keepn ", "\\cellx-5000 ", "\\cellx30000 ",
                                            "{\\pict\\pngblip ", "{\\fonttbl", "{\\colortbl", "{\\pntext ", "$", "\t", "\r\n", QByteArray(1, '\0')};
          text.insert(at, marks[below(marks.size())]);
        }
      }
    }
    return text;
  }

 private:
  std::mt19937_64 random_;
};

/// True when the bytes were read; otherwise they were refused as they may be.
bool check(const QByteArray& bytes) {
  RichText text;
  try {
    text = RtfReader::read(bytes);
  } catch (const ERtfFile& error) {
    EXPECT_FALSE(error.message().isEmpty());
    return false;
  }
  replaceInRichText(text, u"$musteri$"_s, u"IŞIK $firma$"_s);
  replaceInRichText(text, u"$firma$"_s, u"{\\b TORVANE}"_s);
  EXPECT_EQ(replaceInRichText(text, u"$musteri$"_s, {}), 0);
  const RichLayout layout = layoutRichText(text, 170);
  EXPECT_TRUE(std::isfinite(layout.height));
  return true;
}

qint64 setting(const char* name, qint64 usual) {
  bool isNumber = false;
  const qint64 number = qEnvironmentVariable(name).toLongLong(&isNumber);
  return isNumber ? number : usual;
}

}  // namespace

TEST(RtfFuzz, TheReaderHoldsForDamagedLetters) {
  int arguments = 1;
  char name[] = "rtf_fuzz";
  char* names[] = {name, nullptr};
  const QGuiApplication application(arguments, names);  // fonts hang on it
  const qint64 milliseconds = setting("KVTK_FUZZ_SECONDS", FUZZ_SECONDS) * 1000;
  Damage damage(quint64(setting("KVTK_FUZZ_SEED", 1254)));
  QElapsedTimer whole;
  whole.start();
  qint64 count = 0, read = 0;
  do {
    const QByteArray bytes = damage.bytes();
    SCOPED_TRACE("letter " + std::to_string(count) + ": " + bytes.left(200).toPercentEncoding(" |;{}[]:,\\").toStdString());
    QElapsedTimer one;
    one.start();
    read += check(bytes) ? 1 : 0;
    if (testing::Test::HasFailure()) return;
    ASSERT_LT(one.elapsed(), 5000) << "hangs";
    ++count;
  } while (whole.elapsed() < milliseconds);
  EXPECT_GT(read, count / 20) << "many must reach the layout";
  std::cout << count << " letters, " << read << " of them read\n";
}
