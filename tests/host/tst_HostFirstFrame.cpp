// The 3D view draws the scene as soon as the window shows, with nobody
// touching it: on an X server without a compositor the view stayed black
// until it was dragged.
#include "HostWindowTesting.h"

#include <KalHostWindow.h>
#include <KalPluginsManager.h>

#include <Inventor/Qt/viewers/SoQtExaminerViewer.h>

#include <QGuiApplication>
#include <QImage>
#include <QMainWindow>
#include <QScreen>
#include <QtTest>

#include <memory>

namespace {

// What the view's GL area shows on the screen.
QImage glArea(const KalHostWindow& host)
{
    QWidget* area = host.viewer()->getGLWidget();
    return host.window()
        ->screen()
        ->grabWindow(host.window()->winId())
        .copy(QRect(area->mapTo(host.window(), QPoint()), area->size()))
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

struct Counts
{
    int background = 0;
    int drawn = 0;
    int total = 0;
};

// Pixels of the view's background colour, and pixels of something drawn on
// it (neither the background nor the black of a window nobody drew).
Counts count(const QImage& image, QRgb background)
{
    Counts counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y) & 0xffffff;
            ++counts.total;
            if (pixel == (background & 0xffffff))
                ++counts.background;
            else if (qGray(pixel) > 8)
                ++counts.drawn;
        }
    }
    return counts;
}

} // namespace

class tst_HostFirstFrame : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void viewDrawsWhenTheWindowShows();

private:
    std::unique_ptr<KalHostWindow> m_host;
};

void tst_HostFirstFrame::initTestCase()
{
    if (QGuiApplication::platformName() != QLatin1String("xcb"))
        QSKIP("The 3D view needs an X server; tst_HostFirstFrame_xvfb runs this under Xvfb.");
    HostWindowTesting::setUpScene();
}

void tst_HostFirstFrame::cleanupTestCase()
{
    m_host.reset();
    KalPluginsManager::getInstance()->unloadAll();
}

void tst_HostFirstFrame::viewDrawsWhenTheWindowShows()
{
    // The first and only window of this process, shown and exposed, then
    // left alone.
    m_host = HostWindowTesting::sampleWithPlugin(true);
    QVERIFY(m_host);
    QVERIFY(m_host->viewer());
    const SbColor colour = m_host->viewer()->getBackgroundColor();
    const QRgb background = qRgb(qRound(colour[0] * 255), qRound(colour[1] * 255), qRound(colour[2] * 255));

    Counts seen;
    // The view has the window's events to draw in, but nothing from here.
    QTRY_VERIFY_WITH_TIMEOUT((seen = count(glArea(*m_host), background)).background > seen.total / 2, 3000);
    QVERIFY2(seen.total > 100 * 100, qPrintable(QString::number(seen.total)));
    // The pedestal and the ornament of the sample scene, in the middle.
    QVERIFY2(seen.drawn > seen.total / 100,
             qPrintable(QStringLiteral("%1 of %2 pixels drawn").arg(seen.drawn).arg(seen.total)));
}

QTEST_MAIN(tst_HostFirstFrame)
#include "tst_HostFirstFrame.moc"
