// Modal dialogs above the active window.
#include "platform/qt/qDialogs.h"

#include "platform/qt/qColour.h"
#include "platform/qt/qText.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace {
QMessageBox::Icon IconFor(const std::string& Title, eButtons Buttons)
{
    if (Title.starts_with("Error")) return QMessageBox::Critical;
    if (Title.starts_with("Warn")) return QMessageBox::Warning;
    return Buttons == eButtons::Ok ? QMessageBox::Information : QMessageBox::Question;
}

QMessageBox::StandardButtons ButtonsFor(eButtons Buttons)
{
    if (Buttons == eButtons::YesNo) return QMessageBox::Yes | QMessageBox::No;
    if (Buttons == eButtons::OkCancel) return QMessageBox::Ok | QMessageBox::Cancel;
    return QMessageBox::Ok;
}

std::optional<std::string> Given(const QString& Name)
{
    if (Name.isEmpty()) return {};
    return Plain(Name);
}

// The extension that is asked for comes first; of videos and pictures the other usual kinds can be chosen too.
QString FilterFor(const std::string& Ext)
{
    const QString First = "All Files (*." + Shown(Ext) + ")";
    if (Ext == "avi" || Ext == "wmv" || Ext == "mp4")
        return First +
               ";;Videos (*.avi *.wmv *.mp4 *.m4v *.mov *.mkv *.webm *.mpg *.mpeg *.mts *.m2ts *.ts *.3gp *.flv);;"
               "Any file (*)";
    if (Ext == "jpg") return First + ";;Pictures (*.jpg *.jpeg *.png *.bmp *.gif *.webp *.tif *.tiff);;Any file (*)";
    return First;
}

// A window that has been closed may be gone before the dialog above it.
QWidget* Parent()
{
    QWidget* Active = QApplication::activeWindow();
    return Active && Active->isVisible() ? Active : nullptr;
}
} // namespace

eAnswer qDialogs::MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons)
{
    QMessageBox Box(IconFor(Title, Buttons), Shown(Title), Shown(Text), ButtonsFor(Buttons), Parent());
    // A warning asks before something is lost: Enter, pressed too soon, loses nothing.
    if (Box.icon() == QMessageBox::Warning && Buttons != eButtons::Ok)
        Box.setDefaultButton(Buttons == eButtons::YesNo ? QMessageBox::No : QMessageBox::Cancel);
    Box.setTextFormat(Qt::PlainText);
    Box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    const int Chosen = Box.exec();
    if (Buttons == eButtons::Ok) return eAnswer::Ok;
    return Chosen == QMessageBox::Yes || Chosen == QMessageBox::Ok ? eAnswer::Yes : eAnswer::No;
}

std::optional<std::string> qDialogs::InputBox(const std::string& Prompt, const std::string& Title,
                                              const std::string& Proposed)
{
    QInputDialog Box(Parent());
    Box.setWindowTitle(Shown(Title));
    Box.setLabelText(Shown(Prompt));
    Box.setTextValue(Shown(Proposed));
    Box.resize(Box.sizeHint().expandedTo(QSize(420, 0)));
    if (Box.exec() != QDialog::Accepted) return {};
    return Plain(Box.textValue());
}

std::optional<std::string> qDialogs::ExecComDlg(const std::string& Title, const std::string& Ext, eFileMode Mode,
                                                const std::string& Folder)
{
    const QString Filter = FilterFor(Ext);
    if (Mode == eFileMode::In)
        return Given(QFileDialog::getOpenFileName(Parent(), Shown(Title), Shown(Folder), Filter));
    QFileDialog Box(Parent(), Shown(Title), Shown(Folder), Filter);
    Box.setAcceptMode(QFileDialog::AcceptSave);
    Box.setDefaultSuffix(Shown(Ext));
    if (Box.exec() != QDialog::Accepted) return {};
    return Given(Box.selectedFiles().value(0));
}

std::optional<int32_t> qDialogs::ChooseColour(int32_t Proposed)
{
    const QColor Chosen = QColorDialog::getColor(ToQColor(Proposed), Parent());
    if (!Chosen.isValid()) return {};
    return FromQColor(Chosen);
}
