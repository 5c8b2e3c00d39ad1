#include "simulator/telephone_monitor.h"

#include "base/data/my_query.h"
#include "base/data/value.h"
#include "base/environment.h"

#include <QUdpSocket>

using namespace Qt::StringLiterals;

QByteArray TelephoneMonitor::datagram(const QDateTime& moment, int line, const QString& number, const QString& customerId,
                                      const QString& customer) {
  QString text = moment.toString(u"dd.MM.yyyy|HH:mm|"_s) + QString::number(line) + u'|' + number + u'|';
  text += customerId.isEmpty() ? u"0|"_s : customerId + u'|' + customer + u'|';
  return text.toUtf8();
}

void TelephoneMonitor::announce(const QByteArray& datagram, quint16 port) {
  QUdpSocket().writeDatagram(datagram, QHostAddress(QHostAddress::LocalHost), port);
}

void TelephoneMonitor::ring(TMyConnection& connection, int line, const QString& number, quint16 port) {
  const QDateTime now = environment().now();
  TMyQuery call(connection, u"call"_s);
  call.SQL.setText(u"INSERT INTO CALLERID (CID_TARIH, CID_SAAT, CID_HAT, CID_TELEFON) VALUES (:DAY, :CLOCK, :LINE, :NUMBER)"_s);
  call.ParamByName(u"DAY"_s) = Value(now.date());
  call.ParamByName(u"CLOCK"_s) = Value(now.time());
  call.ParamByName(u"LINE"_s) = Value(QString::number(line));
  call.ParamByName(u"NUMBER"_s) = Value(number);
  call.Execute();
  TMyQuery customer(connection, u"customer"_s);
  customer.SQL.setText(u"SELECT CA_ID, CA_AD FROM CARI WHERE CA_TEL = :NUMBER OR CA_TEL2 = :NUMBER OR CA_CEP = :NUMBER LIMIT 1"_s);
  customer.ParamByName(u"NUMBER"_s) = Value(number);
  customer.Open();
  const bool isKnown = customer.RecordCount() > 0;
  announce(datagram(now, line, number, isKnown ? customer.FieldByName(u"CA_ID"_s).asText() : QString(),
                    isKnown ? customer.FieldByName(u"CA_AD"_s).asText() : QString()),
           port);
}
