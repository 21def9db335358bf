// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QScreen>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <memory>

#include "form/marks.h"
#include "form/qt/window.h"
#include "lockstep.h"

namespace {

// A form that writes down the events reaching it; a click on a cell draws a circle on it, or on
// an odd cell a cross; Start starts Timer2, which blinks cell 2; Exit unloads.
struct Recorder final : form::Form {
    QStringList events;
    form::MarkPen pen;
    Recorder() : Form(std::make_unique<lockstep::Planned>()) {}
    void Command1_Click() override { events << "Start", Timer2.Enabled = true; }
    void Command2_Click() override { events << "Exit", Unload(); }
    void Picture1_Click(int index) override {
        events << QString::number(index);
        index % 2 ? pen.draw_cross(Picture1.at(index)) : pen.draw_circle(Picture1.at(index));
    }
    void Timer2_Timer() override { Picture1[2].Visible = !Picture1[2].Visible; }
};

// A form in a shown window, read back from what reached the screen: grabWindow() gives the
// pixels the window last flushed, where grab() would paint the widgets afresh.
template <typename FormType>
struct Shown {
    FormType form;
    form::qt::Window window{form};
    Shown() {
        window.show_changed(form.load());
        window.show();
        if (!QTest::qWaitForWindowExposed(&window)) qFatal("window not exposed");
    }
    QWidget* child(const QString& name) { return window.findChild<QWidget*>(name); }
    // Shows what the test wrote to the form, or what an event changed; the window paints what
    // it marked for repainting and flushes it to the screen at once, rather than within a few
    // milliseconds.
    void sync(const form::Changes& changes = form::Changes::all()) {
        window.show_changed(changes);
        QEvent paint_now(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&window, &paint_now);
    }
    QImage screen(const QRect& r) {
        return window.screen()
            ->grabWindow(window.winId(), r.x(), r.y(), r.width(), r.height())
            .toImage();
    }
    QColor at(int x, int y) { return screen({x, y, 1, 1}).pixelColor(0, 0); }
};

// WCAG 2's contrast between the lightest and the darkest pixel of an image: of a caption, its
// text on its ground.
double contrast(const QImage& image) {
    double darkest = 2, lightest = 0;  // relative luminance plus WCAG's flare term of 0.05
    for (int i = 0; i < image.width() * image.height(); ++i) {
        const QColor c = image.pixelColor(i % image.width(), i / image.width());
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
    // Every control at its twips, 15 to the pixel, with its text and alignment, in its face at
    // its size, 96 pixels to the inch: the buttons and the rules in the brush face that stands
    // in for 隶书, the captions in the serif one for 宋体; Shape1 exactly framing Label1.
    void controlsStandAsLaidOut() {
        Shown<Recorder> s;
        QCOMPARE(s.window.size(), QSize(9840 / 15, 6750 / 15));
        const char* rules =
            "    游戏规则：按“开始”后，随机选择“您先”或“计算机先”。游戏时，先玩者画“圆”，后完者画"
            "“叉”。若出现某一横行或某一竖行或某一对角线均为圆（或叉），则先玩者（后完者）获胜。若"
            "填完所有格后，双方均未出现此情形，则为和局。结束一局后，可按“开始”继续游戏。    ";
        const std::tuple<const char*, QRect, const char*, int, int, int, const char*> controls[] = {
            {"Command1", {4440, 360, 1455, 615}, "Sanlian Kai", 29, 700, 0, "开始"},
            {"Command2", {4440, 1560, 1455, 615}, "Sanlian Kai", 29, 700, 0, "退出"},
            {"Label1", {4320, 2640, 2415, 855}, "Sanlian Serif", 35, 400, 36, ""},  // centred, top
            {"Label2", {1560, 5040, 2415, 735}, "Sanlian Serif", 35, 400, 36, ""},
            {"Label3", {4440, 3600, 5295, 2895}, "Sanlian Kai", 21, 700, 33, rules},  // left, top
        };
        for (const auto& [name, twips, face, pixels, weight, alignment, text] : controls) {
            const QWidget* w = s.child(name);
            QCOMPARE(w->geometry(), QRect(twips.topLeft() / 15, twips.size() / 15));
            const QFontInfo font(w->font());
            QCOMPARE(std::tuple(font.family(), font.pixelSize(), font.weight()),
                     std::tuple(QString(face), pixels, weight));
            QCOMPARE(std::pair(w->property("alignment").toInt(), w->property("text").toString()),
                     std::pair(alignment, QString(text)));
        }
        QVERIFY(s.child("Label3")->property("wordWrap").toBool());
        // The toss flickers every 10 ms, a won line blinks every 500, the banner moves every 50.
        for (const auto& [name, ms] : {std::pair{"Timer1", 10}, {"Timer2", 500}, {"Timer3", 50}})
            QCOMPARE(std::pair(name, s.window.findChild<QTimer*>(name)->interval()),
                     std::pair(name, ms));
    }

    // A click reaches the cell under it up to the cell's outermost pixels, nothing in the gaps,
    // which pins the cells where they stand; a press released outside is no click, nor is the
    // second press of a double click. Tab walks the cells, then Exit, then Start.
    void clicksAndFocusFollowTheLayout() {
        Shown<Recorder> s;
        for (const QPoint at :
             {QPoint(32, 32), QPoint(104, 104), QPoint(112, 32), QPoint(264, 264), QPoint(31, 32),
              QPoint(105, 50), QPoint(50, 111), QPoint(265, 200)}) {
            QWidget* target = s.window.childAt(at) ? s.window.childAt(at) : &s.window;
            QTest::mouseClick(target, Qt::LeftButton, {}, target->mapFrom(&s.window, at));
        }
        QTest::mouseClick(s.child("Picture1(4)"), Qt::LeftButton);
        QTest::mouseDClick(s.child("Picture1(4)"), Qt::LeftButton);
        QTest::mouseRelease(s.child("Picture1(4)"), Qt::LeftButton);
        QTest::mousePress(s.child("Picture1(4)"), Qt::LeftButton, {}, QPoint(36, 36));
        QTest::mouseRelease(s.child("Picture1(4)"), Qt::LeftButton, {}, QPoint(80, 36));
        s.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&s.window));
        s.child("Command1")->setFocus();
        QStringList order, expected{"Command2", "Command1"};
        for (int i = 0; i < 11; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            order << QApplication::focusWidget()->objectName();
            if (i < 9) expected.insert(i, QStringLiteral("Picture1(%1)").arg(i));
        }
        QCOMPARE(order, expected);
        QTest::mouseClick(s.child("Command2"), Qt::LeftButton);
        QCOMPARE(s.form.events, QStringList({"0", "0", "1", "8", "4", "Exit"}));
    }

    // A white circle and a black cross on a teal ground, with a pen 10 pixels wide, where their
    // twips put them inside the cell's border of 2 pixels, at (32, 32) and (112, 32), drawn by
    // clicks and shown by what the clicks changed; a cell hidden by a tick of the blink is gone;
    // the outline takes its colour, and its corner is rounded off.
    void marksReachTheScreen() {
        Shown<Recorder> s;
        s.form.Shape1.BorderColor = 0xFF0000;
        s.sync();
        s.sync(s.form.click(form::ButtonId::Command1));
        QVERIFY2(s.window.findChild<QTimer*>("Timer2")->isActive(), "Timer2 started by Start");
        s.sync(s.form.tick(form::TimerId::Timer2));
        s.sync(s.form.click_cell(0));
        s.sync(s.form.click_cell(1));
        const QColor teal(0, 0x80, 0x80), white(Qt::white), black(Qt::black), blue(Qt::blue);
        const QColor silver(0xC0C0C0), shade(128, 128, 128), dark(64, 64, 64);
        // The ring's centre line at 36.5 +- 27.8, the cross from 8.7 to 64.3 on both axes; the
        // cell's border at 32 and 33; the outline's straight edge from about 298.
        const std::tuple<int, int, QColor> pixels[] = {
            {68, 37, white},   {68, 44, white},    {68, 48, teal},   {68, 68, teal},
            {37, 68, white},   {99, 68, white},    {122, 42, black}, {175, 95, black},
            {122, 95, black},  {132, 58, black},   {148, 52, teal},  {148, 68, black},
            {228, 68, silver}, {368, 176, blue},   {34, 68, teal},   {33, 68, dark},
            {32, 68, shade},   {288, 176, silver}, {300, 176, blue}};
        for (const auto& [x, y, colour] : pixels)
            QCOMPARE(std::tuple(x, y, s.at(x, y)), std::tuple(x, y, colour));
    }

    // Before the first Start the frame stands empty and light, its outline clear against the
    // inside and the form; after a toss the blue outline is as clear, and the red caption reads
    // at 3:1, as large text must. Every other caption reads at 4.5:1, whatever the desktop's
    // palette: the default one, qt6ct's "darker" scheme and a high-contrast one. A disabled
    // Start stays legible but reads clearly fainter than the enabled Exit.
    void frameAndCaptionsReadOnAnyPalette() {
        const QPalette darker(QColor(0x42, 0x42, 0x45), QColor(0x22, 0x20, 0x20));
        for (const QPalette& desktop : {QApplication::palette(), darker, QPalette(Qt::black)}) {
            QApplication::setPalette(desktop);
            Shown<Recorder> s;
            const auto caption = [&](const char* name) {  // well inside the edges and corners
                return contrast(s.screen(s.child(name)->geometry().adjusted(10, 10, -10, -10)));
            };
            const auto frame_reads = [&] {  // the top edge's middle against either side
                QVERIFY2(contrast(s.screen({368, 175, 1, 2})) >= 3, "outline against the form");
                QVERIFY2(contrast(s.screen({368, 176, 1, 2})) >= 3, "outline against its inside");
                QVERIFY2(s.at(292, 204).lightnessF() >= QColor(0xC0C0C0).lightnessF(), "inside");
            };
            frame_reads();
            QVERIFY2(caption("Label1") == 1, "an empty frame");
            // The toss's red caption and a draw's blue one, colours written 0xBBGGRR.
            s.form.Label1.Caption = "计算机先";
            s.form.Label1.ForeColor = 0x0000FF;
            s.form.Shape1.BorderColor = 0xFF0000;
            s.form.Label2.Caption = "和局！";
            s.form.Label2.ForeColor = 0xFF0000;
            s.sync();
            frame_reads();
            QVERIFY2(caption("Label1") >= 3, "Label1");
            for (const char* name : {"Command1", "Command2", "Label2", "Label3"})
                QVERIFY2(caption(name) >= 4.5, name);
            s.form.Command1.Enabled = false;
            s.sync();
            QVERIFY2(caption("Command1") >= 4.5, "a disabled Start");
            QVERIFY2(caption("Command1") < 0.75 * caption("Command2"), "Start looks disabled");
        }
    }

    // The banner on the screen, each of its 93 frames as a tick shows it: only ground and ink,
    // no ink more than a frame pixel from the frame's own, and at a device pixel ratio of 1
    // the frame stretched, pixel for pixel. Above 1 (run under Xvfb, whose grabs are in device
    // pixels) the ink is drawn at the screen's own pixels, with edges between ground and ink on
    // nearly `ratio` times as many rows and columns as the 45 and 145 of a ratio of 1, where
    // the frames enlarged would give no more; and the whole lettering covers the last frame
    // enlarged.
    void bannerAtTheScreensOwnPixels() {
        Shown<game::Form1> s;
        s.form.banner = {};  // back to frame 0, whatever ticks came while the window opened
        const double ratio = s.window.devicePixelRatioF();
        QImage shot;
        int shown = 0, enlarged = 0, both = 0, astray = 0;
        for (std::size_t frame = 0; frame < 93; ++frame) {
            s.sync(s.form.tick(form::TimerId::Timer3));
            shot = s.screen(s.child("Image2")->geometry());
            // The frame itself: 225 x 97 pixels of silver and black, its ink inside columns 14 to
            // 216 and rows 33 to 84.
            const form::Picture& picture = s.form.Image1[frame];
            const QString name = QString("frame %1").arg(frame);
            QCOMPARE(std::tuple(frame, picture.width(), picture.height(), picture.ground(),
                                picture.ink()),
                     std::tuple(frame, 225, 97, 0xC0C0C0U, 0U));
            // Which frame pixels lie within a pixel of ink, on a grid one pixel wider each side.
            std::array<std::array<bool, 227>, 99> near{};
            for (int y = 0; y < 97; ++y) {
                for (int x = 0; x < 225; ++x) {
                    QVERIFY2(!picture.is_ink(x, y) || (x >= 14 && x <= 216 && y >= 33 && y <= 84),
                             qPrintable(name + ": ink outside its box"));
                    for (int k = 0; k < 9 && picture.is_ink(x, y); ++k)
                        near[y + k / 3][x + k % 3] = true;
                }
            }
            shown = enlarged = both = astray = 0;  // astray: neither ground nor ink, or stray ink
            for (int i = 0; i < shot.width() * shot.height(); ++i) {
                const int x = (2 * (i % shot.width()) + 1) * 225 / (2 * shot.width());
                const int y = (2 * (i / shot.width()) + 1) * 97 / (2 * shot.height());
                const QRgb c = shot.pixel(i % shot.width(), i / shot.width()) & 0xFFFFFF;
                const bool frame_ink = picture.is_ink(x, y);
                astray += c == 0 ? !near[y + 1][x + 1] : c != 0xC0C0C0;
                shown += c == 0, enlarged += frame_ink, both += c == 0 && frame_ink;
            }
            QVERIFY2(!astray, qPrintable(name + ": neither ground nor ink near the frame's"));
            QVERIFY2(ratio > 1 || (shown == both && enlarged == both),
                     qPrintable(name + ": not the frame stretched"));
        }
        QCOMPARE(s.child("Image2")->geometry(), QRect(400, 8, 242, 108));
        QVERIFY(both >= 0.9 * std::max(shown, enlarged));
        int rows = 0, columns = 0;  // with an edge along their top or their left side
        for (int y = 1; y < shot.height(); ++y)
            rows += shot.copy(0, y, shot.width(), 1) != shot.copy(0, y - 1, shot.width(), 1);
        for (int x = 1; x < shot.width(); ++x)
            columns += shot.copy(x, 0, 1, shot.height()) != shot.copy(x - 1, 0, 1, shot.height());
        const double more = ratio > 1 ? 0.75 * ratio : 1;
        QVERIFY2(rows >= more * 45, "rows with an edge");
        QVERIFY2(columns >= more * 145, "columns with an edge");
    }
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
