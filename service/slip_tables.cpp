#include "service/slip_tables.h"

using namespace Qt::StringLiterals;

namespace SlipTables {

std::vector<QueryColumn> lineColumns() {
  return {{u"MZ_SIRANO"_s, u"NO"_s, 60, {}, {}, false},
          {u"MZ_PARCA_ADI"_s, u"PARÇA ADI"_s, 420, {}, {}, true},
          {u"MZ_ADET"_s, u"MİKTAR"_s, 110, u",0.##"_s, u",0.##"_s, false},
          {u"MZ_TUTAR"_s, u"TUTAR"_s, 130, u",0.00"_s, u",0.00"_s, false}};
}

std::vector<QueryColumn> slipColumns() {
  const QString amount = u",0.00;-,0.00"_s;
  return {{u"TS_NO"_s, u"FİŞ NO"_s, 80, {}, {}, false},
          {u"TS_TARIH"_s, u"FİŞ TARİH"_s, 90, {}, {}, false},
          {u"TS_TURU"_s, u"FİŞ TÜRÜ"_s, 170, {}, {}, false},
          {u"TS_MUSTERI"_s, u"MÜŞTERİ ADI"_s, 190, {}, {}, false},
          {u"TS_YETKILI"_s, u"YETKİLİ ADI"_s, 130, {}, {}, false},
          {u"TS_C_SERINO"_s, u"DIŞ SERİ NO"_s, 130, {}, {}, false},
          {u"TS_C_AD"_s, u"CİHAZ TANIMI"_s, 190, {}, {}, false},
          {u"TS_TUTAR"_s, u"TUTAR"_s, 90, amount, {}, false},
          {u"TS_MALIYET"_s, u"MALİYET TUTAR"_s, 110, amount, {}, false},
          {u"TS_TESLIM_TARIH"_s, u"TESLİM TARİH"_s, 100, {}, {}, false},
          {u"TS_TEL"_s, u"TELEFON"_s, 110, {}, {}, false},
          {u"TS_CEP"_s, u"CEP TELEFON"_s, 110, {}, {}, false},
          {u"TS_C_SIKAYET"_s, u"ŞİKAYETLER"_s, 220, {}, {}, false},
          {u"TS_C_TEKNISYEN_NOT"_s, u"TEKNİSYEN NOTLARI"_s, 220, {}, {}, false},
          {u"TS_USER"_s, u"KULLANICI ADI"_s, 110, {}, {}, false}};
}

}  // namespace SlipTables
