#include "base/exceptions.h"
#include "tests/rtf/rich_text_shown.h"
#include "tests/support/picture.h"
#include "tests/support/screen_test.h"
#include "toolkit/rtf/rich_replace.h"
#include "toolkit/rtf/rtf_reader.h"

using RichTextShown::runOf;
using RichTextShown::shown;
using testing::HasSubstr;

namespace {

QByteArray monoBytes(const char* format, QSize size = {4, 2}) { return pictureBytes(format, size, QImage::Format_Mono); }

RichText readText(const QByteArray& inside) { return RtfReader::read("{\\rtf1\\ansi\\ansicpg1254\\uc1\\deff0{\\fonttbl{\\f0\\fcharset162 Arial;}}" + inside + "}"); }
std::string read(const QByteArray& inside) { return shown(readText(inside)); }

/// How a widespread word processor writes: formats in every run, the text cut at each check of its spelling.
const QByteArray wordLetter = R"({\rtf1\adeflang1025\ansi\ansicpg1254\uc1\adeff0\deff0\stshfdbch31505\deflang1055{\fonttbl
{\f0\fbidi \froman\fcharset162\fprq2{\*\panose 02020603050405020304}Times New Roman;}{\f3\fbidi \froman\fcharset2\fprq2{\*\panose 05050102010706020507}Symbol;}
{\f37\fbidi \fswiss\fcharset162\fprq2 Calibri{\*\falt Carlito};}{\f38\fbidi \froman\fcharset238\fprq2 Times New Roman CE;}}
{\colortbl;\red0\green0\blue0;\red192\green0\blue0;\red255\green255\blue0;}{\*\defchp \fs22}{\stylesheet{\ql \li0 \snext0 Normal;}}
{\*\listtable{\list\listtemplateid1{\listlevel{\leveltext\'01\u-3913 ?;}}}}{\info{\author Birisi}}\paperw11906\margl1417
{\header \pard\plain \f0 ANTET\par}{\*\themedata 504b0304}\pard\plain \ltrpar\qj \li0\ri0\sa160\sl259\slmult1\widctlpar
\rtlch\fcs1 \ab\af0\afs22 \ltrch\fcs0 \f37\fs22\lang1055 {\rtlch\fcs1 \af37 \ltrch\fcs0 \b\cf2\insrsid1 S\'f6zle\'feme }{\rtlch\fcs1 \af0
\ltrch\fcs0 \insrsid2 $MUS}{\*\bkmkstart a}{\*\bkmkend a}{\rtlch\fcs1 \af0 \ltrch\fcs0 \i\highlight3 ter\u304\'dd$}{\insrsid3  \{ek\}}\par
{\listtext\pard\plain\ltrpar \rtlch\fcs1 \af37 \ltrch\fcs0 \f3\fs22 \loch\af3\dbch\af0\hich\f3 \'b7\tab}\pard \ltrpar\fi-360\li720\ls1 {\fs22 madde}\par
\ltrrow\trowd \trgaph108\trleft-108\trbrdrt\brdrs\brdrw10 \clvertalc\clbrdrt\brdrs\brdrw10 \clbrdrl\brdrnone \clbrdrb\brdrs\brdrw10 \cellx2892\clbrdrr\brdrs \cellx5000
\pard \intbl {bir}\cell {\'ddki\par \'fc\'e7}\cell \pard \intbl {\trowd \trgaph108\trleft-108\clbrdrt\brdrs \clbrdrb\brdrs \clvertalc\cellx2892\clbrdrr\brdrs\cellx5000\row }
\pard \brdrb\brdrs\brdrw10\brsp20 {son\line sat\u305?r}{\field{\*\fldinst { MERGEFIELD x }}{\fldrslt {alan}}}\par{\footnote dip}}{\*\datastore 0105})";

struct Reading {
  const char* rtf;
  const char* text;
};

}  // namespace

TEST(RtfTest, AWordProcessorsLetterIsReadWithItsLook) {
  const RichText text = RtfReader::read(wordLetter);
  EXPECT_EQ(shown(text), "Sözleşme $MUSterİ$ {ek}|<•>madde|[bir/İki+üç]|son\nsatıralan");
  const RichRun& first = runOf(text, u"Sözleşme"_s);
  EXPECT_EQ(first.format.font.family, u"Calibri"_s);
  EXPECT_EQ(first.format.font.points, 11);
  EXPECT_TRUE(first.format.font.bold);
  EXPECT_EQ(first.format.color, QColor(192, 0, 0));
  EXPECT_EQ(runOf(text, u"terİ"_s).format.background, QColor(255, 255, 0));
  EXPECT_FALSE(runOf(text, u"ek"_s).format.font.bold);
  const auto& paragraph = std::get<RichParagraph>(text.blocks[0]);
  EXPECT_EQ(paragraph.alignment, Qt::AlignJustify);
  EXPECT_NEAR(paragraph.after, 2.82, 0.01);
  EXPECT_NEAR(paragraph.lineSpacing, 1.08, 0.01);
  const auto& item = std::get<RichParagraph>(text.blocks[1]);
  EXPECT_NEAR(item.left, 12.7, 0.01);
  EXPECT_NEAR(item.first, -6.35, 0.01);
  EXPECT_EQ(item.format.font.family, u"Times New Roman"_s) << "a bullet's own font is not everywhere";
  const RichRow& row = std::get<RichTable>(text.blocks[2]).rows[0];
  EXPECT_NEAR(row.cells[0].width, 52.9, 0.1);
  EXPECT_NEAR(row.left, -1.9, 0.01);
  EXPECT_EQ(row.cells[0].border, u"top bottom"_s);
  EXPECT_EQ(row.cells[1].border, u"right"_s);
  EXPECT_EQ(row.cells[0].vertical, Qt::AlignVCenter);
  EXPECT_EQ(std::get<RichParagraph>(text.blocks[3]).border, u"bottom"_s);
}

TEST(RtfTest, LettersComeInEveryWayOfWritingThem) {
  const Reading cases[] = {
      {R"(\'dd\'fd\'de\'fe\'d0\'f0\'80)", "İıŞşĞğ€"},
      {R"({\fonttbl{\f1\fcharset238 CE;}{\f2\fcharset204 C;}{\f3\fcharset161 G;}}\f1\'b3\f2\'c4\f3\'e1\f0\'fe)", "łДαş"},
      {R"(\u350\'deeker \u8364?\uc0\u304\uc2\u305 xy\uc1z)", "Şeker €İız"},
      {R"(\u-10179?\u-8704?)", "😀"},
      {R"({\uc2\u286 {a}b}c)", "Ğabc"},
      {R"({\fonttbl{\f5\fcharset0\cpg65001 U;}}\f5\'c4\'b0\'e2\'82\'ba)", "İ₺"},
      {R"(a\~b\_c\-d\emdash\ldblquote e\rdblquote\{\}\\)", "a\u00a0b‑cd—“e”{}\\"},
      {R"({\caps i\'fd}\v gizli\v0{\deleted eski} {\*\yabanci {x}y}a\tab b)", "İI a\tb"},
      {"bir\\par\niki\\par\r\n\\par\\pard son", "bir|iki||son"},
      {R"(bir\page iki\par{\page}\par \'fc\'e7\par\pagebb d\'f6rt\par)", "bir|^iki|^üç|^dört"},
      {R"(a\par\sect\sectd\sbknone b\par\sect\sectd c\par)", "a|b|^c"},
      {R"({\pntext\f0 2.\tab}{\*\pn\pnlvlbody}iki\par)", "<2.>iki"},
      {R"(\trowd\cellx1000\cellx2000\cellx3000\intbl a\cell b\cell c\cell\row\trowd\cellx1000\clvmrg\cellx2000\intbl d\cell e\cell\row)", "[a/b/c]|[d/e]"},
      {R"(\trowd\clmgf\cellx1000\clmrg\cellx2000\cellx3000\intbl a\cell\cell c\cell\row)", "[a/c]"},
      {R"(\intbl a\cell b\par\pard son\par)", "a|b|son"},
      {R"({\shp{\*\shpinst\shpleft1{\sp{\sn dx}{\sv 7}}{\shptxt\pard kutu\par}}}d\'fdz\par)", "kutu|dız"},
  };
  for (const Reading& each : cases) EXPECT_EQ(read(each.rtf), each.text) << each.rtf;
  const RichText raised = readText(R"(m{\super 2}{\*\updnprop8000}{\up8 3}{\dn4 x}y)");
  EXPECT_EQ(runOf(raised, u"23"_s).format.script, 1);
  EXPECT_EQ(runOf(raised, u"x"_s).format.script, -1);
  EXPECT_EQ(runOf(raised, u"y"_s).format.script, 0);
}

TEST(RtfTest, PicturesKeepTheirSizeAndOtherKindsArePassedOver) {
  const QByteArray png = monoBytes("png");
  const QByteArray jpeg = monoBytes("jpg");
  EXPECT_EQ(read("{\\*\\shppict{\\pict{\\*\\picprop{\\sp}}\\picwgoal1440\\pichgoal720\\picscalex50\\picscaley100\\pngblip\r\n" + png.toHex() +
                 "}}{\\nonshppict{\\pict\\wmetafile8 0102}}logo\\par"),
            "<13x13>logo");
  EXPECT_EQ(read("{\\pict\\picwgoal1440\\pichgoal1440\\jpegblip\\bin" + QByteArray::number(jpeg.size()) + ' ' + jpeg + "}\\par"), "<25x25>");
  EXPECT_EQ(read("{\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv {\\pict\\picwgoal567\\pichgoal567\\pngblip " + png.toHex() + "}}}}}x\\par"), "<10x10>x");
  EXPECT_EQ(read("{\\pict\\emfblip 0102}a\\par"), "a");
}

TEST(RtfTest, PlaceholdersAreReplacedHoweverTheyAreWritten) {
  RichText text = RtfReader::read(wordLetter);
  EXPECT_EQ(replaceInRichText(text, u"$musteri$"_s, u"IŞIK {A\\b} €"_s), 1);
  EXPECT_EQ(shown(text), "Sözleşme IŞIK {A\\b} € {ek}|<•>madde|[bir/İki+üç]|son\nsatıralan");
  EXPECT_FALSE(runOf(text, u"IŞIK"_s).format.font.italic) << "as its first letter";
  const struct {
    const char* rtf;
    int count;
    const char* text;
  } cases[] = {
      {R"($firma$ ve $F\u304?RMA$, $f\'fdrma$ $FIRMA$$firma$)", 5, "[$firma$] ve [$firma$], [$firma$] [$firma$][$firma$]"},
      {R"(\'24\u102?irma\'24)", 1, "[$firma$]"},
      {R"($fir\line ma$ $firma $ firma$)", 0, "$fir\nma$ $firma $ firma$"},
      {R"(\trowd\cellx1000\intbl {\b $f}{\i irma$}\cell\row)", 1, "[[$firma$]]"},
      {R"({\pntext $firma$}x{\b $fi}r{\i ma}$y\par)", 1, "<$firma$>x[$firma$]y"},
  };
  for (const auto& each : cases) {
    RichText one = readText(each.rtf);
    EXPECT_EQ(replaceInRichText(one, u"$firma$"_s, u"[$firma$]"_s), each.count) << each.rtf;
    EXPECT_EQ(shown(one), each.text);
  }
}

TEST(RtfTest, DamagedFilesAreRefusedInPlainWords) {
  const std::pair<QByteArray, const char*> cases[] = {
      {"", "1. satır: bu bir zengin metin (RTF) dosyası değil"},
      {"PK\x03\x04", "RTF) dosyası değil"},
      {"{\\rtf1 a\n{b}", "2. satır: dosya yarım kalmış"},
      {"{\\rtf1 {\\*\\foo {", "dosya yarım kalmış"},
      {"{\\rtf1\n\nx\\'z9}", "3. satır: \\' ardında"},
      {"{\\rtf1" + QByteArray(100'000, '{'), "çok iç içe"},
      {"{\\rtf1 \\" + QByteArray(1000, 'a') + "}", "sözcüğü çok uzun"},
      {"{\\rtf1 \\bin99999999999 x}", "dosyanın sonunu aşıyor"},
      {"{\\rtf1 \\bin-5 x}", "dosyanın sonunu aşıyor"},
      {"{\\rtf1 " + QByteArray(3'000'000, 'x') + "}", "çok uzun"},
      {"{\\rtf1 " + QByteArray("\\par").repeated(100'000) + "}", "çok uzun"},
      {"{\\rtf1{\\pict\\pngblip 89504e4z}}", "verisi bozuk"},
      {"{\\rtf1{\\pict\\pngblip 8950}}", "resim okunamıyor"},
      {"{\\rtf1{\\pict\\pngblip " + monoBytes("png", {9000, 9000}).toHex() + "}}", "resim çok büyük"},
      {"{\\rtf1" + ("{\\pict\\pngblip " + monoBytes("png", {4000, 4000}).toHex() + "}").repeated(5) + "}", "resim çok büyük"},
  };
  for (const auto& [rtf, reason] : cases) {
    try {
      RtfReader::read(rtf);
      ADD_FAILURE() << rtf.left(60).toStdString() << " was read";
    } catch (const ERtfFile& error) {
      EXPECT_THAT(error.message().toStdString(), HasSubstr(reason));
    }
  }
  EXPECT_THROW(RtfReader::load(u"/yok/bakim.rtf"_s), EInOutError);
}

/// A letter that LibreOffice writes while the test runs.
TEST(RtfTest, LibreOfficesLettersAreReadAndMerged) {
  QTemporaryDir folder;
  const QString source = folder.filePath(u"mektup.fodt"_s);
  put(source, QByteArray(R"(<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0" xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" xmlns:table="urn:oasis:names:tc:opendocument:xmlns:table:1.0"
 xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0" office:version="1.3" office:mimetype="application/vnd.oasis.opendocument.text">
<office:font-face-decls><style:font-face style:name="Sans" svg:font-family="'Liberation Sans'"/></office:font-face-decls>
<office:styles><text:list-style style:name="N"><text:list-level-style-number text:level="1" style:num-suffix="." style:num-format="1">
<style:list-level-properties text:list-level-position-and-space-mode="label-alignment"><style:list-level-label-alignment
 text:label-followed-by="listtab" fo:text-indent="-6mm" fo:margin-left="10mm"/></style:list-level-properties></text:list-level-style-number></text:list-style></office:styles>
<office:automatic-styles>
<style:style style:name="T" style:family="paragraph"><style:paragraph-properties fo:text-align="center"/><style:text-properties style:font-name="Sans" fo:font-size="16pt" fo:font-weight="bold" fo:color="#003366"/></style:style>
<style:style style:name="J" style:family="paragraph"><style:paragraph-properties fo:text-align="justify" fo:text-indent="8mm" fo:line-height="150%"/></style:style>
<style:style style:name="P" style:family="paragraph"><style:paragraph-properties fo:break-before="page"/></style:style>
<style:style style:name="b" style:family="text"><style:text-properties fo:font-weight="bold"/></style:style>
<style:style style:name="i" style:family="text"><style:text-properties fo:font-style="italic" style:text-line-through-style="solid"/></style:style>
<style:style style:name="C" style:family="table-column"><style:table-column-properties style:column-width="40mm"/></style:style>
<style:style style:name="Z" style:family="table-cell"><style:table-cell-properties fo:border="0.5pt solid #000000" fo:padding-left="2mm" fo:padding-top="0.5mm" fo:background-color="#ddeeff"/></style:style>
</office:automatic-styles><office:body><office:text>
<text:p text:style-name="T">BAKIM SÖZLEŞMESİ</text:p>
<text:p text:style-name="J">Taraf <text:span text:style-name="b">$mus</text:span><text:span text:style-name="i">teri$</text:span>, tutar $TUTAR$ (€ “ğ” ₺)</text:p>
<text:list text:style-name="N"><text:list-item><text:p>birinci</text:p></text:list-item><text:list-item><text:p>ikinci<text:tab/>$tarih$</text:p></text:list-item></text:list>
<table:table><table:table-column table:style-name="C" table:number-columns-repeated="2"/><table:table-row><table:table-cell table:style-name="Z">
<text:p>Başlangıç</text:p></table:table-cell><table:table-cell table:style-name="Z"><text:p>$sozbastar$</text:p><text:p>ek</text:p></table:table-cell></table:table-row></table:table>
<text:p><draw:frame text:anchor-type="as-char" svg:width="12mm" svg:height="6mm"><draw:image><office:binary-data>PNG</office:binary-data></draw:image></draw:frame>logo<text:line-break/>alt</text:p>
<text:p text:style-name="P">Yeni sayfa $musteri$</text:p></office:text></office:body></office:document>)").replace("PNG", monoBytes("png").toBase64()));
  outputOf(u"soffice"_s, {u"-env:UserInstallation=file://"_s + folder.filePath(u"profile"_s), u"--headless"_s, u"--convert-to"_s, u"rtf"_s, u"--outdir"_s,
                              folder.path(), source});
  RichText text = RtfReader::load(folder.filePath(u"mektup.rtf"_s));
  EXPECT_EQ(replaceInRichText(text, u"$musteri$"_s, u"ÇİĞDEM"_s), 2);
  EXPECT_EQ(replaceInRichText(text, u"$tutar$"_s, u"12345,5 TL"_s), 1);
  EXPECT_EQ(replaceInRichText(text, u"$sozbastar$"_s, u"01.01.2026"_s), 1);
  EXPECT_EQ(shown(text),
            "BAKIM SÖZLEŞMESİ|Taraf ÇİĞDEM, tutar 12345,5 TL (€ “ğ” ₺)|<1.>birinci|<2.>ikinci\t$tarih$|[Başlangıç/01.01.2026+ek]|<12x6>logo\nalt|^Yeni sayfa ÇİĞDEM");
  const RichRun& title = runOf(text, u"BAKIM"_s);
  EXPECT_EQ(title.format.font.family, u"Liberation Sans"_s);
  EXPECT_EQ(title.format.font.points, 16);
  EXPECT_EQ(title.format.color, QColor(0, 0x33, 0x66));
  EXPECT_TRUE(runOf(text, u"ÇİĞDEM"_s).format.font.bold);
  EXPECT_FALSE(runOf(text, u"ÇİĞDEM"_s).format.font.strikeOut);
  const auto& paragraph = std::get<RichParagraph>(text.blocks[1]);
  EXPECT_NEAR(paragraph.first, 8, 0.05);
  EXPECT_NEAR(paragraph.lineSpacing, 1.5, 0.01);
  EXPECT_NEAR(std::get<RichTable>(text.blocks[4]).rows[0].padding, 2, 0.05);
  const RichCell& cell = std::get<RichTable>(text.blocks[4]).rows[0].cells[0];
  EXPECT_EQ(cell.background, QColor(0xdd, 0xee, 0xff));
  EXPECT_EQ(cell.border.split(u' ').size(), 4);
}
