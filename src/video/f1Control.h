// The window "Animation Control": buttons that move all video windows and the play view by one clock.
#pragma once

#include "video/cControl.h"

#include <QWidget>

class QLineEdit;
class QPushButton;

class f1Control : public QWidget
{
public:
    static constexpr const char* Section = "f1Control"; // of the settings

    f1Control();

    cControl Control;

protected:
    void closeEvent(QCloseEvent* Event) override;

private:
    void Press(int Index);

    std::array<QPushButton*, 8> cmdVidContr{};
    QLineEdit* txtSpeed;
};
