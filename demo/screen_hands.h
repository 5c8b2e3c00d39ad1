#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>
#include <stdexcept>

/// A station of the walk that was not reached.
class StationMissed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Works the program from outside its main thread as a user does: keys and mouse go through the X server, pictures come
/// from the screen. Only questions about widgets are asked on the main thread.
class ScreenHands {
 public:
  /// pictureFolder must exist; pictures are numbered in their order.
  explicit ScreenHands(QString pictureFolder);

  /// Waits until the question is answered with true on the main thread; throws StationMissed after the time.
  void waitFor(const QString& station, const std::function<bool()>& question, int seconds = 15);
  /// Asks on the main thread.
  template <class Answer>
  Answer ask(const std::function<Answer()>& question) {
    Answer answer{};
    onMainThread([&] { answer = question(); });
    return answer;
  }

  /// Keys by their X names, "F2", "ctrl+F4"; one after the other.
  void press(const QStringList& keys);
  void type(const QString& text);
  /// Left click in the middle of the visible widget of that object name; a command that the ribbon has folded away is unfolded
  /// before, as the keyboard does it.
  void click(const QString& objectName);
  /// Saves the whole screen as "NN-name.png".
  void picture(const QString& name);
  static void pause(int milliseconds);

 private:
  void onMainThread(const std::function<void()>& work);
  void clickInto(const std::function<QWidget*()>& find);
  void tool(const QStringList& arguments);
  /// Waits until the program's window in front has the keyboard: the window manager gives it a moment later.
  void awaitKeyboard();

  QString pictureFolder_;
  int pictures_ = 0;
};

/// The visible widget, or button of the command, of that name in any window of the program, or null. Main thread.
QWidget* visibleWidget(const QString& objectName);
/// Goes down the menu that opens to an entry and takes it; picture: name of one taken on the entry, none when empty.
void chooseFromMenu(ScreenHands& hands, const QString& caption, const QString& picture = {});
/// True when the modal dialog of that title is on top. Main thread.
bool isInFront(const QString& title);
