// The screens of SMS and e-mail and the slip's notices, on the real database against the simulator.
#include "app/quendUtils.h"
#include "base/ini_file.h"
#include "base/program_paths.h"
#include "comm/fEpostaUnit.h"
#include "comm/smsGonderUnit.h"
#include "comm/smsUnit.h"
#include "comm/sms_text.h"
#include "simulator/practice.h"
#include "simulator/simulator.h"
#include "tests/service/slip_form_fixture.h"
#include "tests/support/fixed_environment.h"
#include "toolkit/edits/combo_edit.h"

namespace {

class MessageScreens : public SlipFormTest {
 protected:
  MessageScreens() {
    QuendUtil->programFolder = folder.path() + u'/';
    qputenv("KVTK_SETTINGS", folder.filePath(u"settings.ini"_s).toUtf8());
    Practice::prepare(simulator, QuendUtil->programFolder);
    sms.emplace();
    mail.emplace();
    bulk.emplace();
    ports().loadMessageSettings();
  }

  QString kept(const QString& key) { return IniFile::read(folder.filePath(u"Sms.ini"_s), u"Sms"_s, key, u"-"_s); }
  int heard(Service service) {
    const auto all = simulator.requests();
    return int(std::ranges::count(all, service, &Simulator::Request::service));
  }
  /// A slip with a mobile number in that status, saved; what was said goes to dialogs and into the balloon.
  TfServisFis* savedSlip(const QString& number, const QString& status) {
    TfServisFis* slip = filledSlip(number);
    box(slip, u"TS_CEP"_s)->setText(u"05001112233"_s);
    box(slip, u"TS_TURU"_s)->setText(status);
    save(slip);
    return slip;
  }

  /// Works in the bulk form once it shows what is waited for.
  void whenBulk(const std::function<bool()>& shows, const std::function<void()>& work) {
    auto* look = new QTimer(&*bulk);
    connectGuarded(look, &QTimer::timeout, &*bulk, [=, this] {
      if (!bulk->isVisible() || !shows()) return;
      look->deleteLater();
      look->stop();
      work();
    });
    look->start(10);
  }

  ScopedEnvironment noPauses{std::make_unique<FixedEnvironment>()};
  Simulator simulator;
  std::optional<TfSMS> sms;
  std::optional<TfEPOSTA> mail;
  std::optional<TsmsYollaForm> bulk;
};

}  // namespace

TEST_F(MessageScreens, SigningInShowsSendersAndBalanceOfEveryGatewayAndSavingKeepsTheChoice) {
  simulator.setCredit(1250);
  const QString balances[] = {u"Kontör Miktarı: 1250"_s, u"Kalan Kontör: 1250"_s, u"Kontör Miktarı: 1250"_s};
  for (int provider = 0; provider < 3; ++provider) {
    fSMS->servis->setItemIndex(provider);
    fSMS->mevcutKontor->clear();
    fSMS->SpeedButton1->click();
    EXPECT_THAT(fSMS->sProfil->items(), testing::ElementsAre(u"TORVANE"_s, u"TEKNIK SERVIS"_s)) << provider;
    EXPECT_EQ(fSMS->mevcutKontor->text(), balances[provider]);
    EXPECT_TRUE(fSMS->uyariPan->isHidden());
  }
  EXPECT_TRUE(dialogs.texts.isEmpty());

  fSMS->sProfil->setItemIndex(1);
  fSMS->btnPost->click();
  EXPECT_EQ(kept(u"servis"_s) + kept(u"sProfil"_s), u"2TEKNIK SERVIS"_s);
  fSMS->LoadParams();
  EXPECT_THAT(fSMS->sProfil->items(), testing::ElementsAre(u"TEKNIK SERVIS"_s));

  simulator.behave(Service::Xml, {Mood::Refuse, u"20"_s, 0});
  const int before = heard(Service::Xml);
  fSMS->SpeedButton1->click();
  EXPECT_EQ(dialogs.texts, QStringList{u"Hata Kodu: (20) Post edilen xml eksik veya hatalı."_s});
  EXPECT_EQ(heard(Service::Xml), before + 1) << "no balance is asked behind a refusal";
}

TEST_F(MessageScreens, TemplatesTakeTheAlphabetAndMarkersAndAccountsOutliveTheForm) {
  fSMS->smsMESAJAK->setText({});
  fSMS->smsMESAJAK->editor()->setFocus();
  ::type(fSMS->smsMESAJAK->editor(), u"aş<B "_s);
  Q_EMIT fSMS->ParamList->itemActivated(fSMS->ParamList->item(4));
  EXPECT_EQ(fSMS->smsMESAJAK->text(), u"aB <SERİ NO> "_s);
  EXPECT_EQ(fSMS->SayPan->text(), u"13"_s);

  fSMS->sParola->setText(u"ğ\"ü"_s);
  sms.reset();
  sms.emplace();
  EXPECT_EQ(fSMS->sParola->text(), u"ğ\"ü"_s);
  EXPECT_EQ(fSMS->sParola->line()->displayText(), u"***"_s);
  QFile::remove(folder.filePath(u"Sms.ini"_s));
  fSMS->LoadParams();
  EXPECT_EQ(fSMS->servis->itemIndex(), 0);
  EXPECT_EQ(fSMS->sProfil->itemCount(), 0);
  IniFile::write(folder.filePath(u"Sms.ini"_s), u"Sms"_s, u"servis"_s, u"9"_s);
  fSMS->LoadParams();
  EXPECT_EQ(fSMS->servis->itemIndex(), 0) << "there is no tenth gateway";
  EXPECT_EQ(fSMS->sProfil->text(), u"-1"_s);  // a file without the key shows it
  EXPECT_EQ(fSMS->smsMESAJAK->text(), QString());
}

TEST_F(MessageScreens, OneTextGoesToManyNumbersWithTheSavedSender) {
  bool isOpen = false;
  whenBulk([this] { return bulk->cxGroupBox1->isEnabled(); }, [&] {
    isOpen = true;
    bulk->TS_TURU->setItemIndex(1);
    bulk->smsMESAJ->editor()->setFocus();
    ::type(bulk->smsMESAJ->editor(), u"Şçğ \"&"_s);
    bulk->ALICITEL->line()->setFocus();
    QTest::keyClick(bulk->ALICITEL->line(), Qt::Key_End);
    ::type(bulk->ALICITEL->line(), u"a,5"_s);
    QTest::keyClick(bulk->ALICITEL->line(), Qt::Key_Backspace);
    bulk->ALICITEL->line()->selectAll();
    for (const Qt::Key key : {Qt::Key_X, Qt::Key_V, Qt::Key_Z}) QTest::keyClick(bulk->ALICITEL->line(), key, Qt::ControlModifier);
    bulk->btnPost->click();
    if (bulk->isVisible()) bulk->reject();
  });
  bulk->Giris(u"05001112233,05001112244"_s);
  EXPECT_TRUE(isOpen);
  EXPECT_EQ(bulk->smsMESAJ->text(), u"scg "_s);
  EXPECT_EQ(bulk->ALICITEL->text(), u"\"05001112233\",\"05001112244\",\"5\""_s);
  EXPECT_EQ(dialogs.texts, QStringList{u"SMS Mesajı servis sağlayıcıya iletilmiştir. Id: 1001"_s});
  EXPECT_THAT(simulator.requests().back().http.body.toStdString(),
              testing::AllOf(testing::HasSubstr(R"("To":["05001112233","05001112244","5"])"), testing::HasSubstr(R"("From":"TORVANE")")));

  const QString many = u"05001112233,"_s.repeated(5000);
  QTimer::singleShot(0, &*bulk, [&] {
    EXPECT_EQ(bulk->ALICITEL->text(), many) << "no number is cut off";
    bulk->reject();
  });
  bulk->Giris(many);

  simulator.behave(Service::Json, {Mood::Refuse, u"402"_s, 0});
  isOpen = true;
  whenBulk([this] { return bulk->uyariPan->text().contains(u"402"_s); }, [&] {
    isOpen = bulk->cxGroupBox1->isEnabled();
    bulk->reject();
  });
  bulk->Giris(u"05"_s);
  EXPECT_FALSE(isOpen) << "a gateway that refused leaves the boxes closed";

  fSMS->sParola->setText({});
  bulk->Giris({});
  EXPECT_EQ(dialogs.texts.back(), u"SMS gönderebilmek için ayarlar bölümünden sms tanımlarını yapmalısınız."_s);
  EXPECT_FALSE(bulk->isVisible());
}

TEST_F(MessageScreens, WhatAGatewayAnswersDecidesWhetherTheSlipIsSaved) {
  switchOn(ParameterFiles::NotifyBySms);
  const struct {
    Service service;
    Behaviour behaviour;
    bool isSaved;
    QStringList said;
    QString balloon;
  } cases[] = {
      {Service::Json, {}, true, {}, u"SMS ile bilgilendirme yapıldı. Id: 1001"_s},
      {Service::Json, {Mood::Refuse, u"402"_s, 0}, false, {u"402 - Istek reddedildi"_s}, {}},
      {Service::Form, {}, true, {}, u"SMS ile bilgilendirme yapıldı."_s},
      {Service::Xml, {Mood::Status, u"500"_s, 0}, true, {u"SMS Servis sağlayıcı ile bağlantı kurulamadı."_s}, u"Servis fiş kaydı tamamlandı."_s}};
  int number = 900;
  for (const auto& each : cases) {
    const QString slipNumber = QString::number(++number);
    fSMS->servis->setItemIndex(int(each.service));
    simulator.behave(each.service, each.behaviour);
    dialogs.texts.clear();
    TfServisFis* slip = savedSlip(slipNumber, u"ARIZA KABUL"_s);
    EXPECT_EQ(dialogs.texts, each.said) << number;
    EXPECT_EQ(balloon(slip)->text(), each.balloon) << number;
    EXPECT_EQ(rows(u"select count(*) from teknikservis where TS_NO='%1'"_s.arg(slipNumber)), each.isSaved ? u"1"_s : u"0"_s) << number;
    EXPECT_EQ(text(slip, u"TS_CEP"_s), u"05001112233"_s);
  }
}

TEST_F(MessageScreens, TheCustomerIsToldOnlyWhereStatusNumberAndParametersSaySo) {
  fSMS->smsMESAJAK->setText(u"alindi"_s);
  fSMS->SmsMesajTam->setText(u"<SERİ NO> hazir <SERİ NO>"_s);
  const QStringList columns{u"TS_MUSTERI"_s, u"TS_C_AD"_s,  u"TS_C_MARKA"_s,   u"TS_C_TURU"_s,         u"TS_C_SERINO"_s,
                            u"TS_ACIKLAMA"_s, u"TS_TUTAR"_s, u"TS_C_SIKAYET"_s, u"TS_C_TEKNISYEN_NOT"_s};
  savedSlip(u"970"_s, u"ARIZA KABUL"_s);  // the parameter is off
  switchOn(ParameterFiles::NotifyBySms);
  savedSlip(u"971"_s, u"ONARILIYOR"_s);
  TfServisFis* silent = filledSlip(u"972"_s);  // without a number
  save(silent);
  EXPECT_EQ(heard(Service::Json), 0);
  savedSlip(u"973"_s, u"TAMAMLANDI"_s);
  ASSERT_EQ(heard(Service::Json), 1);
  EXPECT_TRUE(simulator.requests().back().http.body.contains("\"Message\":\"SN1 hazir SN1\""));
  EXPECT_TRUE(dialogs.texts.isEmpty());
  fSMS->SmsMesajTam->setText(SmsText::markers().join(u'/'));
  TfServisFis* full = filledSlip(u"975"_s);
  QStringList texts;
  for (const QString& column : columns) {
    if (auto* line = full->findChild<TextEdit*>(column)) line->setText(line->text() + column.right(4));
    if (auto* memo = full->findChild<MemoEdit*>(column)) memo->setText(column.right(4));
    texts += full->text(column);
  }
  box(full, u"TS_CEP"_s)->setText(u"05"_s);
  box(full, u"TS_TURU"_s)->setText(u"TAMAMLANDI"_s);
  save(full);
  EXPECT_THAT(QString::fromUtf8(simulator.requests().back().http.body).toStdString(), testing::HasSubstr("\"" + texts.join(u'/').toStdString() + "\""));
  fSMS->sParola->setText({});
  savedSlip(u"974"_s, u"ARIZA KABUL"_s);
  EXPECT_EQ(dialogs.texts, QStringList{u"SMS gönderebilmek için ayarlar bölümünden sms tanımlarını yapmalısınız."_s});
  EXPECT_EQ(rows(u"select count(*) from teknikservis"_s), u"6"_s);
}

TEST_F(MessageScreens, TheCustomerIsMailedWhenAnExistingSlipIsDone) {
  switchOn(ParameterFiles::NotifyByMail);
  TfServisFis* slip = filledSlip(u"960"_s);
  box(slip, u"TS_EPOSTA"_s)->setText(u"ayse@ornek.example"_s);
  box(slip, u"TS_TURU"_s)->setText(u"TAMAMLANDI"_s);
  save(slip);
  EXPECT_EQ(simulator.mails().size(), 0u) << "not at the first save";
  save(slip);
  ASSERT_EQ(simulator.mails().size(), 1u);
  EXPECT_EQ(simulator.mails()[0].recipients, QList<QByteArray>{"ayse@ornek.example"});
  EXPECT_TRUE(simulator.mails()[0].signedIn);
  EXPECT_EQ(workspace.findChild<QLabel*>(u"statusText"_s)->text(), u"ayse@ornek.example adresine e-posta başarıyla gönderildi."_s);

  simulator.behave(Service::Mail, {Mood::Refuse, u"alici"_s, 0});
  save(slip);
  box(slip, u"TS_EPOSTA"_s)->setText(u"a..b@b.co"_s);
  save(slip);
  fEPOSTA->eSMTPPassword->setText({});
  box(slip, u"TS_EPOSTA"_s)->setText(u"ayse@ornek.example"_s);
  save(slip);
  EXPECT_EQ(dialogs.texts, (QStringList{u"E-Posta gönderiminde hata oluştu. Lütfen ayarlarınızı kontrol ediniz."_s,
                                        uR"(Lütfen geçerli bir "Alıcı E-Posta adresi" girin.)"_s, u"Lütfen gerekli alanları doldurun."_s}));
  EXPECT_EQ(simulator.mails().size(), 1u);
  const QString logged = QString::fromUtf8(contentOf(logFileName()));
  EXPECT_TRUE(logged.contains(u"SMTP e-posta gönderim hatası"_s));
  EXPECT_FALSE(logged.contains(u"1234"_s));
}

TEST_F(MessageScreens, TheMailAccountIsTriedStepByStep) {
  int asked = 0;
  const auto tryFor = [&](const QString& typed) {
    dialogs.texts.clear();
    QTimer look;
    connectGuarded(&look, &QTimer::timeout, &*mail, [&] {
      auto* question = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
      if (question == nullptr) return;
      look.stop();
      ++asked;
      question->setTextValue(typed);
      question->accept();
    });
    look.start(5);
    fEPOSTA->SpeedButton1->click();
    return dialogs.texts;
  };
  const QStringList badSender{uR"(Lütfen geçerli bir "Gönderici E-Posta adresi" girin.)"_s};
  const QString sender = fEPOSTA->eSMTPOWNER->text();
  fEPOSTA->eSMTPOWNER->setText(u"a@b"_s);
  EXPECT_EQ(tryFor(u"x@y.example"_s), badSender);
  fEPOSTA->eSMTPOWNER->setText(sender);
  EXPECT_EQ(tryFor({}), QStringList());
  const QString server = fEPOSTA->eSMTPName->text();
  fEPOSTA->eSMTPName->setText({});
  EXPECT_EQ(tryFor(u"x@y.example"_s), QStringList{u"Lütfen gerekli alanları doldurun."_s});
  EXPECT_EQ(asked, 2) << "the address is asked for before the fields are looked at";
  fEPOSTA->eSMTPName->setText(server);
  EXPECT_EQ(tryFor(u"x@y.example"_s), QStringList{u"E-Posta başarıyla gönderildi."_s});
  EXPECT_EQ(simulator.mails().size(), 1u);

  fEPOSTA->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(fEPOSTA));
  dialogs.texts.clear();
  for (TextEdit* left : {fEPOSTA->eSMTPOWNER, fEPOSTA->eSubject}) {
    fEPOSTA->eSMTPOWNER->setText(sender);
    left->line()->setFocus();
    fEPOSTA->eSMTPOWNER->setText(u"a@b"_s);
    fEPOSTA->eSMTPName->line()->setFocus();
    EXPECT_TRUE(fEPOSTA->eSMTPOWNER->line()->hasFocus());
  }
  EXPECT_THAT(dialogs.texts, testing::SizeIs(testing::Ge(2)));
  fEPOSTA->hide();
}
