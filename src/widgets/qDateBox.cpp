// The calendar below the box.
#include "widgets/qDateBox.h"

#include "widgets/qIcons.h"

#include <QAction>
#include <QCalendarWidget>

namespace {
constexpr const char* Form = "yyyy-MM-dd";
}

qDateBox::qDateBox(QWidget* Parent) : QLineEdit(Parent)
{
    QAction* Button = addAction(DrawnIcon("calendar", IconColour), TrailingPosition);
    Button->setToolTip("Choose the date in a calendar (Alt+Down)");
    Button->setShortcut(Qt::ALT | Qt::Key_Down);
    Button->setShortcutContext(Qt::WidgetShortcut);
    connect(Button, &QAction::triggered, this, [this] { ShowCalendar(); });
    setPlaceholderText("day/month/year");
}

void qDateBox::ShowCalendar()
{
    auto* Calendar = new QCalendarWidget(this);
    Calendar->setObjectName("Calendar");
    Calendar->setWindowFlags(Qt::Popup);
    Calendar->setAttribute(Qt::WA_DeleteOnClose);
    Calendar->setDateRange(QDate(1930, 1, 1), QDate(2029, 12, 31)); // what the session data file can hold
    if (const QDate Date = QDate::fromString(text(), Form); Date.isValid()) Calendar->setSelectedDate(Date);
    connect(Calendar, &QCalendarWidget::clicked, this, [this, Calendar](QDate Date) {
        setText(Date.toString(Form));
        Calendar->close();
    });
    Calendar->move(mapToGlobal(QPoint(0, height())));
    Calendar->show();
    Calendar->setFocus();
}
