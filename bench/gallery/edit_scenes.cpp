#include "base/data/value.h"
#include "bench/gallery/scene.h"

#include "toolkit/edits/balloon.h"
#include "toolkit/edits/button_edit.h"
#include "toolkit/edits/combo_edit.h"
#include "toolkit/edits/currency_edit.h"
#include "toolkit/edits/date_edit.h"
#include "toolkit/edits/date_time_edit.h"
#include "toolkit/edits/edit_menu.h"
#include "toolkit/edits/image_box.h"
#include "toolkit/edits/lookup_edit.h"
#include "toolkit/edits/lookup_source.h"
#include "toolkit/edits/mask_edit.h"
#include "toolkit/edits/memo_edit.h"
#include "toolkit/edits/spin_edit.h"
#include "toolkit/edits/task_dialog.h"
#include "toolkit/edits/text_edit.h"
#include "toolkit/edits/time_edit.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>

using namespace Qt::StringLiterals;
using Gallery::bringUp;
using Gallery::picture;

namespace {

/// A thousand customers, as the look-up of a slip offers them.
class Customers : public LookupSource {
 public:
  int rowCount() const override { return 1000; }
  int columnCount() const override { return 3; }
  QString text(int row, int column) const override {
    static const QStringList names{u"AYŞE IŞIK"_s, u"İSMAİL ÇAĞLAR"_s, u"ÖZGÜR ŞAHİN"_s, u"GÜLİZ DEMİR"_s, u"CAN BİLGİSAYAR LTD. ŞTİ."_s};
    static const QStringList places{u"KADIKÖY / İSTANBUL"_s, u"ÇANKAYA / ANKARA"_s, u"BORNOVA / İZMİR"_s};
    if (column == 0) return u"%1 %2"_s.arg(names[row % names.size()]).arg(row + 1);
    return column == 1 ? u"532 %1 45 67"_s.arg(100 + row % 900) : places[row % places.size()];
  }
  QString caption(int column) const override { return QStringList{u"MÜŞTERİ"_s, u"CEP"_s, u"İLÇE / İL"_s}[column]; }
  int width(int column) const override { return column == 0 ? 200 : 130; }
};

enum class State { Empty, Filled, Disabled, ReadOnly, Refused };

struct BoxKind {
  QString caption;
  std::function<EditBox*(QWidget*)> make;
  Value value;
  QString refused;  ///< a text that the box cannot read
};

template <class Box>
EditBox* plain(QWidget* parent) {
  return new Box(parent);
}

const std::vector<BoxKind>& boxKinds() {
  static const std::vector<BoxKind> kinds{
      {u"Metin"_s, plain<TextEdit>, Value(u"DİZÜSTÜ BİLGİSAYAR"_s), u"ÇOK UZUN"_s},
      {u"Düğmeli"_s,
       [](QWidget* parent) -> EditBox* {
         auto* box = new ButtonEdit(parent);
         box->setCaption(u"Müşteri Adı"_s);
         box->addButton(ellipsisButton(u"Seç"_s));
         return box;
       },
       Value(u"AYŞE IŞIK"_s), u"AYŞE"_s},
      {u"Liste"_s,
       [](QWidget* parent) -> EditBox* {
         auto* box = new ComboEdit(parent);
         box->setItems({u"SERVİSTE"_s, u"DIŞ SERVİSTE"_s, u"TESLİM EDİLDİ"_s, u"İADE EDİLDİ"_s});
         return box;
       },
       Value(u"DIŞ SERVİSTE"_s), u"YOK"_s},
      {u"Arama"_s, plain<LookupEdit>, Value(u"ÖZGÜR ŞAHİN"_s), u"YOK"_s},
      {u"Tutar"_s, plain<CurrencyEdit>, Value(1234567.5), u"12,,5"_s},
      {u"Tarih"_s, plain<DateEdit>, Value(QDate(2026, 2, 28)), u"31.02.2026"_s},
      {u"Tarih ve saat"_s, plain<DateTimeEdit>, Value(QDateTime(QDate(2026, 2, 28), QTime(14, 30, 5))), u"31.02.2026 25:00"_s},
      {u"Saat"_s, plain<TimeEdit>, Value(QTime(14, 30)), u"25:61"_s},
      {u"Sayı"_s, plain<SpinEdit>, Value(42), u"9999999999"_s},
      {u"Telefon"_s,
       [](QWidget* parent) -> EditBox* {
         auto* box = new MaskEdit(parent);
         box->setMask(u"9999 999 99 99;_"_s);
         return box;
       },
       Value(u"0532 123 45 67"_s), u"0532"_s},
  };
  return kinds;
}

void bring(EditBox& box, const BoxKind& kind, State state) {
  box.setAccessibleName(kind.caption);
  box.setMinimumWidth(210);
  if (state != State::Empty) box.setEditValue(kind.value);
  if (state == State::Disabled) box.setEnabled(false);
  if (state == State::ReadOnly) box.setReadOnly(true);
  if (state == State::Refused) {
    box.setText(kind.refused);
    box.setErrorText(u"Bu değer okunamıyor."_s);
  }
}

QImage allStates() {
  QWidget host;
  auto* grid = new QGridLayout(&host);
  const QStringList captions{u"Boş"_s, u"Dolu"_s, u"Kapalı"_s, u"Salt okunur"_s, u"Reddedilmiş"_s};
  for (int column = 0; column < captions.size(); ++column) grid->addWidget(new QLabel(captions[column]), 0, column + 1);
  int row = 1;
  for (const BoxKind& kind : boxKinds()) {
    grid->addWidget(new QLabel(kind.caption), row, 0);
    for (int state = 0; state < captions.size(); ++state) {
      EditBox* box = kind.make(&host);
      bring(*box, kind, State(state));
      grid->addWidget(box, row, state + 1);
    }
    ++row;
  }
  bringUp(host);
  host.setFocus();
  return picture(host);
}

/// Every box with the keyboard in it, one below the other.
QImage focused() {
  QWidget host;
  auto* column = new QVBoxLayout(&host);
  std::vector<EditBox*> boxes;
  for (const BoxKind& kind : boxKinds()) {
    boxes.push_back(kind.make(&host));
    bring(*boxes.back(), kind, State::Filled);
    column->addWidget(boxes.back());
  }
  bringUp(host);
  QImage whole = picture(host);
  QPainter painter(&whole);
  for (EditBox* box : boxes) {
    box->line()->setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    painter.drawPixmap(box->mapTo(&host, QPoint()), box->grab());
  }
  return whole;
}

/// A box with room below, in which work opens what it has.
template <class Box>
QImage opened(const std::function<void(Box&)>& work, QSize room = {420, 340}) {
  QWidget host;
  host.resize(room);
  Box box(&host);
  box.setGeometry(20, 20, 240, box.sizeHint().height());
  bringUp(host);
  box.line()->setFocus();
  work(box);
  return picture(host);
}

QImage memoAndPicture() {
  QWidget host;
  auto* row = new QHBoxLayout(&host);
  auto* memo = new MemoEdit;
  memo->setCaption(u"Şikayet"_s);
  memo->setText(u"AÇILMIYOR, FAN SESİ GELİYOR.\nMÜŞTERİ AKŞAM UĞRAYACAK."_s);
  auto* disabled = new MemoEdit;
  disabled->setCaption(u"Açıklama"_s);
  disabled->setText(u"KAPALI"_s);
  disabled->setEnabled(false);
  auto* image = new ImageBox;
  image->setEmptyText(u"Fotoğraf yok"_s);
  for (QWidget* widget : QWidgetList{memo, disabled, image}) {
    widget->setMinimumSize(260, 120);
    row->addWidget(widget);
  }
  bringUp(host);
  memo->editor()->setFocus();
  return picture(host);
}

QImage editMenu() {
  return opened<TextEdit>([](TextEdit& box) {
    box.setText(u"SEÇİLİ METİN"_s);
    box.line()->selectAll();
    QApplication::clipboard()->setText(u"x"_s);
    showEditMenu(box.line(), box.mapToGlobal(QPoint(30, 30)));
  });
}

Scene dialog(const QString& name, TaskIcon icon, const QString& instruction, const QString& text, std::vector<TaskButton> buttons) {
  return {u"dialog-"_s + name, [=] {
            return Gallery::pictureOfModal([&] {
              runTaskDialog(nullptr, {.title = u"Torvane Teknik Servis Takip"_s, .instruction = instruction, .text = text,
                                      .icon = icon, .buttons = buttons});
            });
          }};
}

}  // namespace

std::vector<Scene> Gallery::editScenes() {
  static const Customers customers;
  return {
      {u"edits-states"_s, allStates},
      {u"edits-focused"_s, focused},
      {u"edits-memo"_s, memoAndPicture},
      {u"edits-menu"_s, editMenu},
      {u"edits-refused-paste"_s,
       [] {
         return opened<DateEdit>([](DateEdit& box) { box.line()->pasteText(u"yarın"_s); });
       }},
      {u"edits-list-open"_s,
       [] {
         return opened<ComboEdit>([](ComboEdit& box) {
           QStringList items;
           for (int i = 1; i <= 20; ++i) items.append(u"SERVİS TİPİ %1"_s.arg(i));
           box.setItems(items);
           box.setItemIndex(2);
           box.dropDown();
         }, {420, 420});
       }},
      {u"edits-lookup-open"_s,
       [] {
         return opened<LookupEdit>([](LookupEdit& box) {
           box.setSource(&customers);
           Gallery::type(u"gü"_s);
         }, {560, 420});
       }},
      {u"edits-calendar-open"_s,
       [] {
         return opened<DateEdit>([](DateEdit& box) {
           box.setDate(QDate(2026, 2, 28));
           box.dropDown();
         });
       }},
      dialog(u"information"_s, TaskIcon::Information, {}, u"Servis fiş kaydı tamamlandı."_s, {{1, u"Tamam"_s}}),
      dialog(u"question"_s, TaskIcon::Question, u"Fiş silinecek onaylıyor musunuz ?"_s,
             u"100 numaralı fiş, malzemeleri ve fotoğraflarıyla birlikte silinecek."_s, {{6, u"Evet"_s}, {7, u"Hayır"_s}}),
      dialog(u"warning"_s, TaskIcon::Warning, u"Kayıt değişmiş"_s,
             u"Bu kayıt başka bir bilgisayarda değiştirildi. Değişiklikleriniz kaydedilmedi; kaydı yeniden açıp tekrar deneyin."_s,
             {{1, u"Yeniden Aç"_s}, {2, u"Vazgeç"_s}}),
      dialog(u"error"_s, TaskIcon::Error, {},
             u"#23000Duplicate entry '100' for key 'TS_NO'\r\n\r\nHata kayıt dosyasına yazılamadı: "
             "/home/kullanici/.local/share/torvane/program/kvtk.log"_s,
             {{1, u"Tamam"_s}}),
      {u"dialog-file"_s, [] {
         return pictureOfModal([] { askSaveFile(nullptr, u"Excel`e Aktar"_s, u"Excel (*.xls)"_s, u"xls"_s); });
       }},
  };
}
