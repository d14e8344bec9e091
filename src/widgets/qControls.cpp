// Finding the controls, their texts and the room that these need.
#include "widgets/qControls.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QTabBar>
#include <QTableView>
#include <QTextDocument>
#include <QTextEdit>
#include <QToolButton>

#include <algorithm>

namespace {
// A control's text and the room that it needs; none needs nothing.
struct Reading
{
    QString Text{};
    QSize Need{0, 0};
};

QSize SizeOf(const QFont& Font, const QString& Text)
{
    return QFontMetrics(Font).size(Qt::TextShowMnemonic, Text);
}

// What a control that shows Text needs when Inner is the part of it that is left for the text.
Reading Around(const QWidget& Control, const QString& Text, QSize TextSize, const QRect& Inner)
{
    return {Text, TextSize + Control.size() - Inner.size()};
}

Reading Read(const QLabel& Label)
{
    QString Text = Label.text();
    if (Qt::mightBeRichText(Text) && Label.textFormat() != Qt::PlainText) {
        QTextDocument Document;
        Document.setHtml(Text);
        Text = Document.toPlainText();
    }
    if (Text.isEmpty()) return {};
    if (Label.wordWrap()) return {Text, {Label.minimumSizeHint().width(), Label.heightForWidth(Label.width())}};
    return {Text, Label.sizeHint()};
}

Reading Read(const QAbstractButton& Button)
{
    const QString Text = Button.text();
    if (Text.isEmpty()) return {};
    if (dynamic_cast<const QToolButton*>(&Button)) return {Text, Button.sizeHint()};
    QStyleOptionButton Option;
    Option.initFrom(&Button);
    const auto Part = dynamic_cast<const QRadioButton*>(&Button) ? QStyle::SE_RadioButtonContents
                      : dynamic_cast<const QCheckBox*>(&Button)  ? QStyle::SE_CheckBoxContents
                                                                 : QStyle::SE_PushButtonContents;
    QSize Size = SizeOf(Button.font(), Text);
    if (!Button.icon().isNull()) Size += QSize(Button.iconSize().width() + 4, 0);
    return Around(Button, Text, Size, Button.style()->subElementRect(Part, &Option, &Button));
}

Reading Read(const QLineEdit& Box)
{
    constexpr int Sides = 4; // the space that a box keeps beside its text
    const QString Text = Box.text();
    if (Text.isEmpty()) return {};
    QStyleOptionFrame Option;
    Option.initFrom(&Box);
    Option.lineWidth = Box.hasFrame() ? Box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &Option, &Box) : 0;
    const QRect Inner = Box.style()->subElementRect(QStyle::SE_LineEditContents, &Option, &Box);
    return Around(Box, Text, SizeOf(Box.font(), Box.displayText()) + QSize(Sides, 0), Inner);
}

Reading Read(const QComboBox& Box)
{
    if (Box.currentText().isEmpty()) return {};
    QStyleOptionComboBox Option;
    Option.initFrom(&Box);
    Option.editable = Box.isEditable();
    const QRect Inner = Box.style()->subControlRect(QStyle::CC_ComboBox, &Option, QStyle::SC_ComboBoxEditField, &Box);
    return Around(Box, Box.currentText(), SizeOf(Box.font(), Box.currentText()), Inner);
}

Reading Read(const QGroupBox& Box)
{
    const QSize Title = SizeOf(Box.font(), Box.title());
    if (Box.title().isEmpty()) return {};
    return {Box.title(), {Title.width() + 2 * Box.style()->pixelMetric(QStyle::PM_DefaultFrameWidth), Title.height()}};
}

// A heading takes the lines that it needs, if it may. The table is too narrow by what the headings lack.
Reading Read(const QTableView& Table)
{
    const QHeaderView& Head = *Table.horizontalHeader();
    const int Margin = 2 * Table.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &Head);
    const int Flags = static_cast<int>(Head.defaultAlignment()) & Qt::TextWordWrap;
    QStringList Titles;
    QSize Lacking(0, 0);
    for (int i = 0; i < Head.count(); ++i) {
        const QString Title = Table.model()->headerData(i, Qt::Horizontal).toString();
        Titles << Title;
        if (Head.isSectionHidden(i)) continue;
        const QRect Room(0, 0, Head.sectionSize(i) - Margin, QWIDGETSIZE_MAX);
        const QSize Need = QFontMetrics(Head.font()).boundingRect(Room, Flags, Title).size();
        Lacking.rwidth() += std::max(0, Need.width() - Room.width());
        Lacking.rheight() = std::max(Lacking.height(), Need.height() + Margin / 2 - Head.height());
    }
    return {Titles.join('|'), Table.size() + Lacking};
}

Reading Read(const QWidget& Control)
{
    if (const auto* Label = dynamic_cast<const QLabel*>(&Control)) return Read(*Label);
    if (const auto* Button = dynamic_cast<const QAbstractButton*>(&Control)) return Read(*Button);
    if (const auto* Box = dynamic_cast<const QLineEdit*>(&Control)) return Read(*Box);
    if (const auto* Choice = dynamic_cast<const QComboBox*>(&Control)) return Read(*Choice);
    if (const auto* Group = dynamic_cast<const QGroupBox*>(&Control)) return Read(*Group);
    if (const auto* Table = dynamic_cast<const QTableView*>(&Control)) return Read(*Table);
    if (const auto* Text = dynamic_cast<const QTextEdit*>(&Control)) return {Text->toPlainText()};
    if (const auto* Bar = dynamic_cast<const QProgressBar*>(&Control)) return {Bar->text()};
    QStringList Texts;
    if (const auto* List = dynamic_cast<const QListWidget*>(&Control))
        for (int i = 0; i < List->count(); ++i)
            Texts << List->item(i)->text();
    const auto* Tabs = dynamic_cast<const QTabBar*>(&Control);
    for (int i = 0; Tabs && i < Tabs->count(); ++i)
        Texts << Tabs->tabText(i);
    return {Texts.join('|'), Tabs ? Tabs->minimumSizeHint() : QSize(0, 0)};
}

// Parts that the toolkit makes inside its own controls, and frames that show nothing themselves, are no controls.
bool IsControl(const QWidget& Child)
{
    const auto* Label = dynamic_cast<const QLabel*>(&Child);
    if (Child.objectName().startsWith("qt_")) return Label && !Label->text().isEmpty(); // that of a message
    if (!Child.objectName().isEmpty()) return !dynamic_cast<const QMenu*>(&Child);
    return Label || dynamic_cast<const QAbstractButton*>(&Child) || dynamic_cast<const QLineEdit*>(&Child) ||
           dynamic_cast<const QGroupBox*>(&Child) || dynamic_cast<const QComboBox*>(&Child) ||
           dynamic_cast<const QAbstractItemView*>(&Child);
}

class Lister
{
public:
    explicit Lister(const QWidget& InitMain) : Main(InitMain) {}

    QString Lines;

    void AddWindow(const QWidget& Each)
    {
        Window = &Each;
        AddControl(Each, {Each.windowTitle(), SizeOf(Each.font(), Each.windowTitle())});
        for (const QWidget* Child : Each.findChildren<QWidget*>())
            if (WindowOf(*Child) == Window && IsControl(*Child)) AddControl(*Child, Read(*Child));
        for (QMenuBar* Bar : Each.findChildren<QMenuBar*>())
            if (WindowOf(*Bar) == Window) AddMenus(*Bar);
    }

    // The window of the area, the dialog or the main window that a control stands in.
    static const QWidget* WindowOf(const QWidget& Control)
    {
        const QWidget* Each = &Control;
        while (!Each->isWindow() && !dynamic_cast<const QMdiSubWindow*>(Each->parentWidget()))
            Each = Each->parentWidget();
        return Each;
    }

private:
    void AddLine(const QObject& Control, const char* Class, const Reading& What, bool IsEnabled, bool IsVisible,
                 const QRect& Place)
    {
        QString Text = What.Text;
        for (const char Sign : {'\t', '\n', '\r'})
            Text.replace(Sign, ' ');
        QStringList Cells{Window->objectName(),
                          Window->windowTitle(),
                          Control.objectName(),
                          Class,
                          Text,
                          IsEnabled ? "enabled" : "disabled",
                          IsVisible ? "visible" : "hidden"};
        for (const int Number :
             {Place.x(), Place.y(), Place.width(), Place.height(), What.Need.width(), What.Need.height()})
            Cells << QString::number(Number);
        Lines += Cells.join('\t') + '\n';
    }

    void AddControl(const QWidget& Control, const Reading& What)
    {
        const QRect Place(Main.mapFromGlobal(Control.mapToGlobal(QPoint(0, 0))), Control.size());
        AddLine(Control, Control.metaObject()->className(), What, Control.isEnabled(), Control.isVisible(), Place);
    }

    void AddMenus(QMenuBar& Bar)
    {
        const QPoint Corner = Main.mapFromGlobal(Bar.mapToGlobal(QPoint(0, 0)));
        for (QAction* Title : Bar.actions()) {
            const QRect Place = Bar.actionGeometry(Title).translated(Corner);
            AddAction(*Title, Bar.font(), Place, Bar.isVisible());
            if (QMenu* Menu = Title->menu())
                for (QAction* Entry : Menu->actions())
                    if (!Entry->isSeparator())
                        AddAction(*Entry, Menu->font(), Menu->actionGeometry(Entry).translated(Place.bottomLeft()),
                                  Bar.isVisible());
        }
    }

    void AddAction(const QAction& Entry, const QFont& Font, const QRect& Place, bool IsVisible)
    {
        // A menu's own title has its name in the menu.
        const QObject& Named = Entry.menu() ? static_cast<const QObject&>(*Entry.menu()) : Entry;
        AddLine(Named, "QAction", {Entry.text(), SizeOf(Font, Entry.text())}, Entry.isEnabled(),
                IsVisible && Entry.isVisible(), Place);
    }

    const QWidget& Main;
    const QWidget* Window = nullptr;
};
} // namespace

QString ListControls(QWidget& Main)
{
    Lister List(Main);
    List.AddWindow(Main);
    for (const QMdiSubWindow* Frame : Main.findChildren<QMdiSubWindow*>())
        if (Frame->widget() && !Frame->isHidden()) List.AddWindow(*Frame->widget());
    for (const QWidget* Top : QApplication::topLevelWidgets())
        if (Top != &Main && Top->isVisible() && Top->windowType() != Qt::Popup && Top->windowType() != Qt::ToolTip)
            List.AddWindow(*Top);
    return List.Lines;
}
