#include "service/slip_lists.h"

using namespace Qt::StringLiterals;

namespace {

QStringList replacedAt(QStringList list, qsizetype index, const QString& word) {
  list[index] = word;
  return list;
}

}  // namespace

namespace SlipLists {

const QStringList& statuses() {
  static const QStringList list{u"ARIZA KABUL"_s,
                                u"SIRA BEKLİYOR"_s,
                                u"PARÇA BEKLİYOR"_s,
                                u"İŞLEM YAPILMADI"_s,
                                u"İADE EDİLDİ"_s,
                                u"SERVİSE ALINDI"_s,
                                u"ONARILIYOR"_s,
                                u"DIŞ SERVİSTE"_s,
                                u"FABRİKA İADESİ BEKLENİYOR"_s,
                                u"FABRİKA DEĞİŞİM BEKLENİYOR"_s,
                                u"MÜŞTERİ ONAYI BEKLENİYOR"_s,
                                u"MÜŞTERİ ONAY VERDİ"_s,
                                u"MÜŞTERİ ONAYLAMADI"_s,
                                u"TAMAMLANDI"_s,
                                u"FATURALANDI"_s,
                                u"TESLİM EDİLDİ"_s};
  return list;
}

QString intakeStatus() { return statuses().first(); }
QString completedStatus() { return statuses().at(13); }
QString outsideServiceStatus() { return statuses().at(7); }

const QStringList& historyStatuses() {
  static const QStringList list = replacedAt(replacedAt(statuses(), 4, u"İPTAL EDİLDİ"_s), 15, u"TESLİME HAZIR"_s);
  return list;
}

const QStringList& warrantyStates() {
  static const QStringList list{QString(), u"VAR"_s, u"YOK"_s, u"BELİRSİZ"_s, u"ONARIM GRANTİLİ"_s};
  return list;
}

const QStringList& browserWarrantyStates() {
  static const QStringList list = replacedAt(warrantyStates(), 4, u"ONARIM GARANTİLİ"_s);
  return list;
}

const QStringList& paymentWays() {
  static const QStringList list{QString(), u"Nakit"_s, u"Kredi Kartı"_s, u"Cari Hesap"_s};
  return list;
}

}  // namespace SlipLists
