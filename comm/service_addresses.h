#pragma once

#include <QString>

/// Where the services are that the program speaks to: keys of "Sunucular.ini" beside the program, which its owner writes.
///
///   [Sms]
///   JsonSmsProvider=sms.example.com
///   FormSmsProvider=http://sms.example.com/api
///   XmlSmsProvider=sms.example.com
///   SertifikaDosyasi=/etc/ssl/own-gateway.pem
///   [Kur]
///   Adres=rates.example.com
///
/// A value is a host, with port and path where there are any. Without a scheme the first two gateways and the rates are
/// plain HTTP; the third is HTTPS only.
struct ServiceAddresses {
  QString json;  ///< values as they stand in the file; empty when missing
  QString form;
  QString xml;
  QString rates;
  QString certificateFile;  ///< whom the gateways' HTTPS trusts; empty for the system's authorities

  /// programFolder: with a separator behind it. Never fails; what is missing is empty.
  static ServiceAddresses load(const QString& programFolder);

  /// Addresses to send to; path begins with "/" or is empty. Throw ENetworkError naming file and key when the value is missing
  /// or is no address of the scheme.
  QString jsonAddress(const QString& path) const;
  QString formAddress() const;
  QString xmlAddress(const QString& path) const;
  QString ratesAddress(const QString& path) const;
};
