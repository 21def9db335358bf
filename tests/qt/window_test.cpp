// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QLabel>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <memory>

#include "form/marks.h"
#include "form/qt/window.h"
#include "lockstep.h"

namespace {

// A shown window over a form that writes down the events reaching it; Exit unloads.
struct Shown final : form::Form {
    QStringList events;
    form::qt::Window window{*this};
    Shown() : form::Form(std::make_unique<lockstep::Planned>()) {
        load();
        window.show();
        if (!QTest::qWaitForWindowExposed(&window)) qFatal("window not exposed");
    }
    void Form_Load() override {}
    void Command1_Click() override { events << "Start"; }
    void Command2_Click() override { events << "Exit", Unload(); }
    void Picture1_Click(int index) override { events << QString::number(index); }
    void Timer1_Timer() override {}
    void Timer2_Timer() override {}
    void Timer3_Timer() override {}
    QWidget* child(const QString& name) { return window.findChild<QWidget*>(name); }
    QString shown(const QString& name) {  // geometry, font pixels and weight, alignment
        const QWidget* w = child(name);
        const auto* label = qobject_cast<const QLabel*>(w);
        return QString::asprintf("%d %d %d %d %d %d %d", w->x(), w->y(), w->width(), w->height(),
                                 w->font().pixelSize(), w->font().weight(),
                                 label ? int(label->alignment()) : 0);
    }
};

// WCAG 2's contrast of a control's caption: well inside its edges and corners, the lightest
// colour against the darkest, the one the text and the other its ground.
double caption_contrast(QWidget& window, const char* name) {
    const QImage shot =
        window.grab(window.findChild<QWidget*>(name)->geometry().adjusted(10, 10, -10, -10))
            .toImage();
    double darkest = 2, lightest = 0;  // relative luminance plus WCAG's flare term of 0.05
    for (int i = 0; i < shot.width() * shot.height(); ++i) {
        const QColor c = shot.pixelColor(i % shot.width(), i / shot.width());
        double l = 0.05;
        for (const auto& [v, weight] :
             {std::pair{c.redF(), 0.2126}, {c.greenF(), 0.7152}, {c.blueF(), 0.0722}})
            l += weight * (v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4));
        darkest = std::min(darkest, l), lightest = std::max(lightest, l);
    }
    return lightest / darkest;
}

}  // namespace

class WindowTest : public QObject {
    Q_OBJECT

private slots:
    // Each control at its pixels, 15 twips to the pixel, with its font and alignment.
    void controlsStandAtTheirPixels() {
        Shown s;
        QCOMPARE(s.window.size(), QSize(656, 450));
        QCOMPARE(s.window.windowTitle(), "三连棋局");
        QCOMPARE(s.shown("Command1"), "296 24 97 41 29 700 0");
        QCOMPARE(s.shown("Command2"), "296 104 97 41 29 700 0");
        QCOMPARE(s.shown("Label1"), "288 176 161 57 35 400 36");  // centred, top
        QCOMPARE(s.shown("Label2"), "104 336 161 49 35 400 36");
        QCOMPARE(s.shown("Label3"), "296 240 353 193 21 700 33");  // left, top
        QCOMPARE(s.child("Shape1")->geometry(), QRect(288, 176, 161, 57));
        s.Timer1.Enabled = s.Timer2.Enabled = true;
        s.window.sync();
        for (const auto& [name, interval] :
             {std::pair{"Timer1", 10}, {"Timer2", 500}, {"Timer3", 50}}) {
            QCOMPARE(s.window.findChild<QTimer*>(name)->interval(), interval);
            QVERIFY(s.window.findChild<QTimer*>(name)->isActive());
        }
    }

    // A click reaches the cell under it up to the cell's outermost pixels, nothing in the gaps,
    // which pins the cells where they stand; a press released outside is no click. Exit takes the
    // focus before Start, and closes the window.
    void clicksAndFocusFollowTheLayout() {
        Shown s;
        for (const QPoint at :
             {QPoint(32, 32), QPoint(104, 104), QPoint(112, 32), QPoint(264, 264), QPoint(31, 32),
              QPoint(105, 50), QPoint(50, 111), QPoint(265, 200)}) {
            QWidget* target = s.window.childAt(at) ? s.window.childAt(at) : &s.window;
            QTest::mouseClick(target, Qt::LeftButton, {}, target->mapFrom(&s.window, at));
        }
        QTest::mousePress(s.child("Picture1(4)"), Qt::LeftButton, {}, QPoint(36, 36));
        QTest::mouseRelease(s.child("Picture1(4)"), Qt::LeftButton, {}, QPoint(80, 36));
        s.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&s.window));
        s.child("Picture1(8)")->setFocus();
        QStringList order;
        for (int i = 0; i < 3; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            order << QApplication::focusWidget()->objectName();
        }
        QCOMPARE(order, QStringList({"Command2", "Command1", "Picture1(0)"}));
        QTest::mouseClick(s.child("Command2"), Qt::LeftButton);
        QCOMPARE(s.events, QStringList({"0", "0", "1", "8", "Exit"}));
        QVERIFY(!s.window.isVisible());
    }

    // A white circle and a black cross on a teal ground, with a pen 10 pixels wide, where their
    // twips put them inside the cell's border of 2 pixels; a hidden cell is gone; the outline
    // takes its colour; the banner's picture is stretched to its bounds, to the last pixel.
    void marksAndPicturesAtTheirPixels() {
        Shown s;
        form::MarkPen pen;
        pen.draw_circle(s.Picture1[0]);
        pen.draw_cross(s.Picture1[1]);
        s.Picture1[2].Visible = false;
        s.Shape1.BorderColor = 0xFF0000;
        auto frame = std::make_shared<form::Picture>(4, 2, 0xC0C0C0, 0);
        frame->set_ink(3, 1);
        s.Image2 = {frame, true, true, {6000, 120, 3610, 1510}};
        s.window.sync();
        const QImage circle = s.child("Picture1(0)")->grab().toImage();
        const QImage cross = s.child("Picture1(1)")->grab().toImage();
        const QImage banner = s.child("Image2")->grab().toImage();
        const QColor ground = circle.pixelColor(2, 36), white(Qt::white), black(Qt::black);
        QVERIFY(ground == QColor(0, 0x80, 0x80) && circle.pixelColor(1, 36) != ground);  // teal
        // The ring's centre line at 36.5 +- 27.8, the cross from 8.7 to 64.3 on both axes.
        const QColor silver(0xC0C0C0);
        const std::tuple<const QImage*, int, int, QColor> pixels[] = {
            {&circle, 36, 5, white},    {&circle, 36, 12, white},  {&circle, 36, 16, ground},
            {&circle, 36, 36, ground},  {&circle, 5, 36, white},   {&circle, 67, 36, white},
            {&cross, 10, 10, black},    {&cross, 63, 63, black},   {&cross, 10, 63, black},
            {&cross, 20, 26, black},    {&cross, 36, 20, ground},  {&cross, 36, 36, black},
            {&banner, 240, 100, black}, {&banner, 10, 10, silver}, {&banner, 200, 40, silver},
            {&banner, 100, 80, silver}};
        for (const auto& [image, x, y, colour] : pixels) QCOMPARE(image->pixelColor(x, y), colour);
        QVERIFY(s.child("Picture1(2)")->isHidden());
        QCOMPARE(s.child("Shape1")->grab().toImage().pixelColor(80, 0), QColor(Qt::blue));
        QCOMPARE(s.child("Image2")->geometry(), QRect(400, 8, 241, 101));
    }

    // Every caption reads at 4.5:1 or better whatever the desktop's palette: the default one,
    // qt6ct's "darker" scheme and a high-contrast one. A disabled Start stays legible but reads
    // clearly fainter than the enabled Exit.
    void captionsReadOnAnyPalette() {
        const QPalette darker(QColor(0x42, 0x42, 0x45), QColor(0x22, 0x20, 0x20));
        for (const QPalette& desktop : {QApplication::palette(), darker, QPalette(Qt::black)}) {
            QApplication::setPalette(desktop);
            Shown s;
            // The toss's red caption and a draw's blue one, colours written 0xBBGGRR.
            s.Label1.Caption = "计算机先";
            s.Label1.ForeColor = 0x0000FF;
            s.Label2.Caption = "和局！";
            s.Label2.ForeColor = 0xFF0000;
            s.window.sync();
            for (const char* name : {"Command1", "Command2", "Label1", "Label2", "Label3"})
                QVERIFY2(caption_contrast(s.window, name) >= 4.5, name);
            s.Command1.Enabled = false;
            s.window.sync();
            const double start = caption_contrast(s.window, "Command1");
            QVERIFY(start >= 4.5 && start < 0.75 * caption_contrast(s.window, "Command2"));
        }
    }
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
