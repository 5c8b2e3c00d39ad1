#pragma once

#include "service/outside_service_store.h"
#include "service/slip_look_ups.h"
#include "service/slip_rules.h"
#include "toolkit/edits/balloon.h"

#include <QDialog>

#include <memory>

class DateEdit;
class LookupEdit;
class QToolButton;
class TMyQuery;
class qcxTextEdit;

/// "Dış Servis Bilgileri": where a slip's device went, when it left and came back, and how many days were promised. Works
/// on DM's connection.
class TfDisServis : public QDialog {
  Q_OBJECT
  const std::unique_ptr<TMyQuery> query_;

 public:
  explicit TfDisServis(QWidget* parent = nullptr);
  ~TfDisServis() override;

  static constexpr int Confirmed = 6;
  static constexpr int GivenUp = 2;

  /// Shows what the slip holds, modally under its status box. A name that no firm has becomes a firm; a name typed over a
  /// chosen one renames that one: meant. Throws EDatabaseError.
  int Giris(const OutsideService& held, const QWidget& statusBox);
  /// What the boxes held when they were confirmed; empty when the name was.
  const OutsideService& confirmed() const { return confirmed_; }

  TMyQuery& qServis;
  LookupEdit* TS_DISSERVIS;
  DateEdit* TS_DISSERVIS_CIKIS;
  DateEdit* TS_DISSERVIS_GIRIS;
  qcxTextEdit* TS_DISSERVIS_BILGI;
  qcxTextEdit* TS_DISSERVIS_TESLIM_SURE;
  QAction* aKaydet;
  QAction* aVazgec;

  void reject() override { done(GivenUp); }

 private:
  void buildBoxes();
  void buildCommands();
  void confirm();
  bool isReadable();
  void writeFirm(const QString& name);

  OutsideServiceStore store_;
  QueryLookup firms_;
  Balloon balloon_;
  QToolButton* saveButton_ = nullptr;
  OutsideService confirmed_;
  qint64 firm_ = OutsideServiceStore::noFirm;
};
