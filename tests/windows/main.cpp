// Entry point of the window tests: a program without a screen.
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include "support/Fresh.h"
#include "widgets/qLook.h"

#include <QApplication>

REGISTER_LISTENER("fresh", 1, FreshListener);

int main(int Count, char** Args)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication Program(Count, Args);
    SetLook();
    return doctest::Context(Count, Args).run();
}
