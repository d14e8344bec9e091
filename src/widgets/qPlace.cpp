// Places of windows, in the work area and on the screen.
#include "widgets/qPlace.h"

#include "base/mNumText.h"
#include "platform/mHost.h"

#include <QGuiApplication>
#include <QMdiSubWindow>
#include <QScreen>
#include <QWidget>

namespace {
// The part that is moved: the frame around a window of the work area.
QWidget* Frame(const QWidget& Window)
{
    QWidget* Parent = Window.parentWidget();
    return qobject_cast<QMdiSubWindow*>(Parent) ? Parent : const_cast<QWidget*>(&Window);
}

QRect Room(const QWidget& Moved)
{
    if (!Moved.isWindow() && Moved.parentWidget()) return Moved.parentWidget()->rect();
    const QScreen* Screen = QGuiApplication::screenAt(Moved.geometry().center());
    return (Screen ? Screen : QGuiApplication::primaryScreen())->availableGeometry();
}

int Kept(const std::string& Section, const std::string& Key)
{
    constexpr int32_t Far = 1 << 20; // farther than any screen
    return RoundWithin(Val(gHost.Settings->GetSetting(Section, Key).value_or("0")), -Far, Far);
}
} // namespace

void RestorePlace(QWidget& Window, const std::string& Section, QSize Default, const std::string& Prefix)
{
    QWidget* Moved = Frame(Window);
    const QRect Free = Room(*Moved);
    QRect Place(Kept(Section, Prefix + "Left"), Kept(Section, Prefix + "Top"), Kept(Section, Prefix + "Width"),
                Kept(Section, Prefix + "Height"));
    const bool IsKept = !Place.isEmpty() && Free.intersects(Place);
    if (!IsKept) Place.setSize(Default);
    Place.setSize(Place.size().boundedTo(Free.size()));
    if (!IsKept) Place.moveCenter(Free.center());
    Moved->setGeometry(Place);
}

void KeepPlace(const QWidget& Window, const std::string& Section, const std::string& Prefix)
{
    const QWidget* Moved = Frame(Window);
    if (Moved->isMaximized() || Moved->isMinimized() || Moved->isFullScreen()) return;
    const QRect Place = Moved->geometry();
    const std::pair<const char*, int> Values[] = {
        {"Left", Place.left()}, {"Top", Place.top()}, {"Width", Place.width()}, {"Height", Place.height()}};
    for (const auto& [Key, Value] : Values)
        gHost.Settings->SaveSetting(Section, Prefix + Key, FormatNum(Value, "0"));
}
