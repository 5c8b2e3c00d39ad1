// Throws damaged letters at the reader of rich text, the merge and the layout. KVTK_FUZZ_SECONDS says how long, KVTK_FUZZ_SEED
// which.
#include "tests/fuzz/damage.h"
#include "tests/support/picture.h"
#include "toolkit/report/rich_layout.h"
#include "toolkit/rtf/rich_replace.h"
#include "toolkit/rtf/rtf_reader.h"

#include <QGuiApplication>

#include <iostream>

namespace {

/// What the reader takes well, to be damaged.
QByteArrayList samples() {
  const QByteArray head = R"({\rtf1\ansi\ansicpg1254\uc1\deff0{\fonttbl{\f0\fswiss\fcharset162 Arial;}{\f1\fcharset2 Symbol;}{\f2\fcharset0\cpg65001 U;}}{\colortbl;\red9\green200\blue7;})";
  return {
      contentOf(QStringLiteral(KVTK_TEMPLATES "/bakim.rtf")),
      head + R"(\pard\qj\fi-567\li1134\tx1134\tqr\tx8000 {\b $mus}{\i ter\u304\'dd$}\tab \u-10179?\u-8704?\f2\'c4\'b0\par{\listtext\f1\'b7\tab}\sl-240 a\page\pagebb b\par})",
      head + R"(\trowd\trgaph108\trleft-108\trrh300\clvmgf\clbrdrt\brdrs\clcbpat1\cellx2000\clmgf\cellx3000\clmrg\cellx4000\intbl a\cell b\cell c\cell\row
\trowd\clvmrg\cellx2000\cellx4000\intbl\cell $firma$\par\cell\row\pard\brdrb\brdrs son\super 2\par})",
      head + "{\\*\\shppict{\\pict\\picscalex120\\picwgoal700\\pichgoal300\\pngblip " + pictureBytes("png", {5, 3}).toHex() +
          "}}{\\shp{\\*\\shpinst{\\sp{\\sv {\\pict\\jpegblip " + pictureBytes("jpg", {5, 3}).toHex() +
          "}}}{\\shptxt kutu\\par}}}{\\pict\\pngblip\\bin12 012345678901}}",
      "{\\rtf1" + QByteArray(290, '{') + 'x' + QByteArray(291, '}'),
      {},
  };
}

const QByteArrayList marks{"{", "}", "\\", "\\'", "\\u", "\\*", "{\\*\\", "\\cell ", "\\row ", "\\par ", "\\trowd ", "\\pard ", "\\page ", "\\sect ", "\\bin9 ",
                           "\\uc0 ", "\\fs1 ", "\\fs800 ", "\\li30000 ", "\\ri30000 ", "\\fi-30000 ", "\\sl-1 ", "\\sb30000 ", "\\keepn ", "\\cellx-5000 ", "\\cellx30000 ",
                           "{\\pict\\pngblip ", "{\\fonttbl", "{\\colortbl", "{\\pntext ", "$", "\t", "\r\n", QByteArray(1, '\0'),
                           "-1", "0", "32767", "-32768", "99999999999", "2147483647"};

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

}  // namespace

TEST(RtfFuzz, TheReaderHoldsForDamagedLetters) {
  int arguments = 1;
  char name[] = "rtf_fuzz";
  char* names[] = {name, nullptr};
  const QGuiApplication application(arguments, names);  // fonts hang on it
  qint64 read = 0;
  const qint64 count = Damage::run(samples(), marks, [&read](const QByteArray& bytes, const QByteArray&) { read += check(bytes) ? 1 : 0; });
  EXPECT_GT(read, count / 20) << "many must reach the layout";
  std::cout << count << " letters, " << read << " of them read\n";
}
