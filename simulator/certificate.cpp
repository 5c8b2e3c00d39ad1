#include "simulator/certificate.h"

#include "base/exceptions.h"

#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

template <class Kind>
using Owned = std::unique_ptr<Kind, void (*)(Kind*)>;

void need(bool isGood) {
  if (!isGood) throw Exception(u"Sertifika yapılamadı."_s);
}

template <class Write>
QByteArray pem(Write write) {
  const std::unique_ptr<BIO, void (*)(BIO*)> memory(BIO_new(BIO_s_mem()), BIO_free_all);
  need(memory && write(memory.get()) == 1);
  char* bytes = nullptr;
  const long size = BIO_get_mem_data(memory.get(), &bytes);
  return QByteArray(bytes, size);
}

void extend(X509* certificate, int kind, const QByteArray& value) {
  const Owned<X509_EXTENSION> extension(X509V3_EXT_conf_nid(nullptr, nullptr, kind, value.constData()), X509_EXTENSION_free);
  need(extension && X509_add_ext(certificate, extension.get(), -1) == 1);
}

}  // namespace

Certificate Certificate::make(const QString& address) {
  constexpr long oneDay = 24 * 60 * 60;
  const Owned<EVP_PKEY> key(EVP_EC_gen("P-256"), EVP_PKEY_free);
  const Owned<X509> certificate(X509_new(), X509_free);
  need(key && certificate);
  X509_set_version(certificate.get(), X509_VERSION_3);
  ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 1);
  X509_gmtime_adj(X509_getm_notBefore(certificate.get()), -oneDay);
  X509_gmtime_adj(X509_getm_notAfter(certificate.get()), oneDay);
  need(X509_set_pubkey(certificate.get(), key.get()) == 1);
  X509_NAME* name = X509_get_subject_name(certificate.get());
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_ASC, reinterpret_cast<const unsigned char*>("kvtk-simulator"), -1, -1, 0);
  X509_set_issuer_name(certificate.get(), name);
  extend(certificate.get(), NID_subject_alt_name, "IP:" + address.toLatin1());
  extend(certificate.get(), NID_basic_constraints, "critical,CA:TRUE");
  need(X509_sign(certificate.get(), key.get(), EVP_sha256()) > 0);
  return {pem([&](BIO* out) { return PEM_write_bio_X509(out, certificate.get()); }),
          pem([&](BIO* out) { return PEM_write_bio_PrivateKey(out, key.get(), nullptr, nullptr, 0, nullptr, nullptr); })};
}
