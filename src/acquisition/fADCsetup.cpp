// What the dialog's buttons do, and what it shows.
#include "acquisition/fADCsetup.h"

#include "acquisition/fDeviceTab.h"
#include "acquisition/fSettingBox.h"
#include "acquisition/fSlaveBox.h"
#include "platform/mHost.h"
#include "platform/qt/qText.h"
#include "widgets/qPlace.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTreeWidget>

namespace {
constexpr int TimeColumn = 0;
constexpr int Columns = 3;
constexpr const char* FailureColour = "#a01010";
} // namespace

void fADCsetup::done(int Result)
{
    Logger.OnChange = nullptr;
    Refresh.stop();
    Logger.Leave();
    KeepPlace(*this, "fADCsetup");
    QDialog::done(Result);
}

void fADCsetup::ShowState()
{
    const bool IsBusy = Logger.Talk().IsBusy();
    State->setText(Shown(Logger.State()));
    State->setStyleSheet(Logger.HasTrouble() ? "font-weight: bold; color: #a01010" : "font-weight: bold");
    Progress->setValue(Logger.Talk().Percent());
    Progress->setFormat(Shown(Logger.Talk().Current()));
    Stopper->setEnabled(IsBusy);
    for (fSettingBox* Each : Settings)
        Each->ShowState();
    for (fDeviceTab* Each : Devices)
        Each->ShowState();
    Slaves->ShowState();
    for (const auto& [Label, Key] : Values) {
        const std::string Value = Logger.Value(Key);
        Label->setText(Value.empty() ? "not read" : Shown(Value));
    }
    if (const QString Text = Shown(Logger.Response()); txtResp->toPlainText() != Text) txtResp->setPlainText(Text);
    ShowLog();
}

// An exchange takes a line for each of its answers; the last one shown may have got more since.
void fADCsetup::ShowLog()
{
    const std::size_t Count = Logger.Talk().Log().size();
    const std::size_t From = Log->property("Shown").toULongLong();
    const std::size_t Anew = From > 0 ? From - 1 : 0;
    const QScrollBar& Bar = *Log->verticalScrollBar();
    const bool IsAtEnd = Bar.value() == Bar.maximum(); // one who has scrolled up reads there
    while (Log->topLevelItemCount() > 0 &&
           Log->topLevelItem(Log->topLevelItemCount() - 1)->data(TimeColumn, Qt::UserRole).toULongLong() >= Anew)
        delete Log->takeTopLevelItem(Log->topLevelItemCount() - 1);
    for (std::size_t i = Anew; i < Count; ++i)
        for (const QString& Line : Shown(Logger.Talk().LogText(i, i + 1)).split('\n', Qt::SkipEmptyParts)) {
            auto* Item = new QTreeWidgetItem(Log, Line.split('\t'));
            Item->setData(TimeColumn, Qt::UserRole, static_cast<qulonglong>(i));
            const bool IsFailure = Line.endsWith('\t' + Shown(Logger.Talk().Log()[i].Failure));
            if (IsFailure) Item->setForeground(Columns - 1, QColor(FailureColour));
        }
    if (IsAtEnd) Log->scrollToBottom();
    Log->setProperty("Shown", static_cast<qulonglong>(Count));
}

void fADCsetup::Stop()
{
    Logger.Talk().Cancel();
}

void fADCsetup::CopyLog()
{
    QString Text;
    const bool IsPart = !Log->selectedItems().isEmpty();
    for (int i = 0; i < Log->topLevelItemCount(); ++i) {
        const QTreeWidgetItem& Item = *Log->topLevelItem(i);
        if (IsPart && !Item.isSelected()) continue;
        for (int Column = 0; Column < Columns; ++Column)
            Text += Item.text(Column) + (Column + 1 < Columns ? '\t' : '\n');
    }
    QApplication::clipboard()->setText(Text);
}

void fADCsetup::SendText()
{
    const std::string Command = Plain(txtSend->text().trimmed());
    if (!IsLoggerCommand(Command))
        return MsgBox("A command begins with # and consists of plain letters, digits and signs.", TitleInformation);
    Logger.Send(Command);
}

void fADCsetup::ReadResponse()
{
    Logger.ReadResponse();
}

void fADCsetup::AskADC()
{
    txtSend->setText("#ADCHWCFG=1,");
    Tabs->setCurrentIndex(Tabs->count() - 1); // where the user completes it
    Logger.Send("#ADCHWCFG?");
}

void fADCsetup::AskSerial()
{
    Logger.Send("#SN?");
}

void fADCsetup::SetClock()
{
    Logger.SetClock();
}

void fADCsetup::ZeroAcc()
{
    Logger.ZeroAcc();
}

void fADCsetup::RunAndExit()
{
    Logger.Run();
    done(Accepted);
}

void fADCsetup::Save()
{
    Logger.Save();
}

void fADCsetup::Read()
{
    Logger.ReadMaster();
}

void fADCsetup::Reset()
{
    if (AskYesNo("The logger will be reset: settings that were not saved to the master are lost. Reset it?",
                 TitleWarning))
        Logger.Reset();
}
