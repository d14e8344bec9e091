// A plain strip chart: twenty curves at a hundred samples a second, drawn on a pixmap and brought to the screen at a
// rate given in pictures a second. What a picture that moves costs at least, beside which the rower's panel is
// measured.
#include <QApplication>
#include <QPainter>
#include <QTimer>
#include <QWidget>

#include <array>
#include <cmath>

namespace {
constexpr int Curves = 20;
constexpr int SampleMs = 10;

class Strip : public QWidget
{
public:
    explicit Strip(int Rate)
    {
        resize(1280, 800);
        Sample.setTimerType(Qt::PreciseTimer);
        connect(&Sample, &QTimer::timeout, this, [this] { Add(); });
        Sample.start(SampleMs);
        connect(&Refresh, &QTimer::timeout, this, [this] { update(); });
        Refresh.start(1000 / Rate);
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, Picture); }

    void resizeEvent(QResizeEvent*) override
    {
        Picture = QPixmap(size());
        Picture.fill(Qt::white);
    }

private:
    void Add()
    {
        QPainter Painter(&Picture);
        Painter.setRenderHint(QPainter::Antialiasing);
        X = (X + 2) % width();
        if (X == 0) Picture.fill(Qt::white);
        for (int i = 0; i < Curves; ++i) {
            const double Y = height() * (i + 0.5 + 0.4 * std::sin(0.02 * X + i)) / Curves;
            Painter.setPen(QPen(QColor::fromHsv(i * 18, 255, 200), 3));
            double& Before = Last[static_cast<std::size_t>(i)];
            if (X > 0) Painter.drawLine(QPointF(X - 2, Before), QPointF(X, Y));
            Before = Y;
        }
    }

    QPixmap Picture;
    QTimer Sample;
    QTimer Refresh;
    std::array<double, Curves> Last{};
    int X = 0;
};
} // namespace

int main(int Count, char** Words)
{
    QApplication Toolkit(Count, Words);
    const QStringList Line = QApplication::arguments();
    Strip Window(std::clamp(Line.value(1).toInt(), 1, 250));
    Window.show();
    return QApplication::exec();
}
