// The list of samples with crew and picture beside it.
#include "views/samples/fSamples.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "platform/qt/qSurface.h"
#include "platform/qt/qText.h"
#include "views/samples/cSamplePicture.h"
#include "widgets/qPlace.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <algorithm>

int16_t gChosenSample;

dSamples::dSamples(QWidget* Parent)
    : QDialog(Parent), lstTests(new QListWidget(this)), lstSeats(new QListWidget(this)), lbSample(new QLabel(this)),
      Picture(new qSurface(this))
{
    setObjectName("dSamples");
    setWindowTitle("Choose a Sample");
    setAttribute(Qt::WA_DeleteOnClose);
    lstTests->setObjectName("lstTests");
    lstSeats->setObjectName("lstSeats");
    lstSeats->setSelectionMode(QAbstractItemView::NoSelection);
    lstSeats->setFocusPolicy(Qt::NoFocus);
    lbSample->setObjectName("lbSample");
    lbSample->setTextFormat(Qt::PlainText);
    lbSample->setWordWrap(true);
    Picture->setObjectName("picSample");
    Picture->setMinimumSize(320, 240);
    Picture->OnResize = [this] { DrawPicture(); };
    auto* Buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    Buttons->button(QDialogButtonBox::Ok)->setObjectName("cmdOk");
    Buttons->button(QDialogButtonBox::Ok)->setEnabled(gFile.Desc.UBound() > 0);
    auto* Samples = new QLabel("&Samples", this);
    Samples->setBuddy(lstTests);
    auto* Layout = new QGridLayout(this);
    Layout->addWidget(Samples, 0, 0);
    Layout->addWidget(lstTests, 1, 0);
    Layout->addWidget(new QLabel("Crew", this), 2, 0);
    Layout->addWidget(lstSeats, 3, 0);
    Layout->addWidget(lbSample, 0, 1);
    Layout->addWidget(Picture, 1, 1, 3, 1);
    Layout->addWidget(Buttons, 4, 0, 1, 2);
    Layout->setColumnStretch(0, 2);
    Layout->setColumnStretch(1, 3);
    FillTestList();
    connect(lstTests, &QListWidget::currentRowChanged, this, [this] { ShowSample(); });
    connect(lstTests, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(Buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(Buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    RestorePlace(*this, "dSamples", {820, 460});
    lstTests->setCurrentRow(std::clamp<int>(gChosenSample, 1, std::max(1, gFile.Desc.UBound())) - 1);
}

void dSamples::FillTestList()
{
    for (const DescRow& Sample : gFile.Desc)
        lstTests->addItem(Shown(Sample.SampleID));
}

void dSamples::FillSeats()
{
    lstSeats->clear();
    for (const CrewRow& Rower : gFile.Crew)
        lstSeats->addItem(Shown(FormatNum(Rower.Seat, "0") + "  " + Rower.Name));
}

void dSamples::ShowSample()
{
    FillSeats();
    DrawPicture();
    const int Row = lstTests->currentRow() + 1;
    if (Row < 1) return;
    const DescRow& Sample = gFile.Desc[Row];
    lbSample->setText(Shown(FormatNum(Sample.StrokeCount, "0") + " strokes at " + FormatNum(Sample.Rate, "0.0") +
                            " /min" + (Sample.Comment.empty() ? "" : "  ·  " + Sample.Comment)));
}

void dSamples::DrawPicture()
{
    const int Row = lstTests->currentRow() + 1;
    if (Row >= 1) DrawSamplePicture(*Picture, OarCurves(gFile.Desc[Row].SampleID));
}

void dSamples::done(int Result)
{
    gChosenSample = Result == Accepted ? static_cast<int16_t>(lstTests->currentRow() + 1) : int16_t{0};
    KeepPlace(*this, "dSamples");
    QDialog::done(Result);
    if (gChosenSample > 0 && OnChosen) OnChosen(gChosenSample);
}
