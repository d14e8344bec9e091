// A box for a date, typed or chosen in a calendar.
#pragma once

#include <QLineEdit>

class qDateBox : public QLineEdit
{
public:
    explicit qDateBox(QWidget* Parent);

private:
    void ShowCalendar();
};
