#pragma once

#include "base/exceptions.h"
#include "service/slip_rules.h"
#include "toolkit/edits/edit_box.h"

#include <QGroupBox>
#include <QHash>

#include <map>

enum class SlipGroup;
struct SlipField;

/// The page "Fiş Bilgileri": the controls of the field table in groups, and the aids that stand between them. How the groups
/// stand goes by the room, which they always use to the right; the page is scrolled in height only.
class SlipFieldsPage : public QWidget {
  Q_OBJECT
 public:
  explicit SlipFieldsPage(QWidget* parent = nullptr);

  /// Control of a column; frame and edit throw Exception with the name when there is none, or one of another kind.
  EditFrame* frame(const QString& column) const;
  EditFrame* findFrame(const QString& column) const { return frames_.value(column); }
  template <class Edit>
  Edit* edit(const QString& column) const {
    if (auto* found = dynamic_cast<Edit*>(frame(column))) return found;
    throw Exception(QStringLiteral("box of another kind: ") + column);
  }
  QString text(const QString& column) const;
  void setText(const QString& column, const QString& text);
  /// All texts that a user can type, with what is known of them; lengths are the table's.
  std::vector<SlipText> texts() const;
  /// The first control whose text is no value of its kind; nothing when all are.
  std::optional<FieldMessage> unreadableField() const;

  /// Fills the status list anew; the text that is shown stays.
  void offerStatuses(const QStringList& statuses);
  /// Takes the button of the outside service off the status box, once.
  void removeOutsideServiceButton();
  /// Selects a status by its place, as the user would; nothing happens when the list is shorter.
  void chooseStatus(int item);

  /// With the slip's, the customer's and the amounts beside one another.
  QSize sizeHint() const override;
  int heightForWidth(int width) const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Group {
    QGroupBox* box;
    std::vector<const SlipField*> fields;
  };
  /// How the groups stand: all below one another, the slip's and the customer's beside the amounts, these three beside one
  /// another above the device, or the device with its memos as a column of its own.
  enum class Arrangement { OneColumn, TwoColumns, ThreeColumns, DeviceColumn };
  /// Widths in a group: of the boxes in its first and second column, and of the memos behind these, 0 where they stand below.
  struct Widths {
    int first;
    int second = 0;
    int memo = 0;
  };
  Arrangement arrangementFor(QSize room) const;
  void placeGroup(SlipGroup name, QRect place, Widths widths);
  int rowStep() const;
  int groupHeight(int rows) const;
  void arrange();
  void connectAids();
  void showTotal();
  void statusChosen(int item);
  void fillLists();

  QHash<QString, EditFrame*> frames_;
  const EditBox* widened_ = nullptr;  ///< has the room of two while it has the keyboard
  std::map<SlipGroup, Group> groups_;
};
