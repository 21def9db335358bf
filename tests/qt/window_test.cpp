// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>

#include "form/marks.h"
#include "form/qt/window.h"

namespace {

struct NoRandom final : form::RandomSource {
    void randomize() override {}
    float random_next() override { return 0; }
};

// Writes down the events that reach it; Exit unloads.
struct RecordingForm final : form::Form {
    RecordingForm() : form::Form(std::make_unique<NoRandom>()) {}
    QStringList events;
    void Form_Load() override {}
    void Command1_Click() override { events << "Command1"; }
    void Command2_Click() override { events << "Command2", Unload(); }
    void Picture1_Click(int index) override { events << QString::number(index); }
    void Timer1_Timer() override {}
    void Timer2_Timer() override {}
    void Timer3_Timer() override {}
};

// A shown window over a loaded form.
struct Shown {
    RecordingForm form;
    form::qt::Window window{form};
    Shown() {
        form.load();
        window.show();
        if (!QTest::qWaitForWindowExposed(&window)) qFatal("window not exposed");
    }
    QWidget* child(const QString& name) { return window.findChild<QWidget*>(name); }
    // A click at a window pixel, delivered to whatever lies there.
    void click(QPoint at) {
        QWidget* target = window.childAt(at);
        target = target ? target : &window;
        QTest::mouseClick(target, Qt::LeftButton, {}, target->mapFrom(&window, at));
    }
};

}  // namespace

class WindowTest : public QObject {
    Q_OBJECT

private slots:
    // Every control at its place in pixels, with its font in pixels and weight, alignment and
    // title; the timers at their intervals.
    void controlsStandAtTheirPixels() {
        Shown s;
        QCOMPARE(s.window.size(), QSize(656, 450));
        QCOMPARE(s.window.windowTitle(), "三连棋局");
        const struct {
            const char* name;
            QRect rect;
            int font_pixels, weight, alignment;
        } rows[] = {
            {"Command1", {296, 24, 97, 41}, 29, 700, 0},
            {"Command2", {296, 104, 97, 41}, 29, 700, 0},
            {"Label1", {288, 176, 161, 57}, 35, 400, Qt::AlignHCenter | Qt::AlignTop},
            {"Shape1", {288, 176, 161, 57}, -1, -1, 0},
            {"Label2", {104, 336, 161, 49}, 35, 400, Qt::AlignHCenter | Qt::AlignTop},
            {"Label3", {296, 240, 353, 193}, 21, 700, Qt::AlignLeft | Qt::AlignTop},
            {"Image2", {400, 8, 105, 57}, -1, -1, 0},
        };
        for (const auto& row : rows) {
            QWidget* widget = s.child(row.name);
            QCOMPARE(widget->geometry(), row.rect);
            if (row.font_pixels > 0) QCOMPARE(widget->font().pixelSize(), row.font_pixels);
            if (row.weight > 0) QCOMPARE(widget->font().weight(), row.weight);
            if (auto* label = qobject_cast<QLabel*>(widget))
                QCOMPARE(int(label->alignment()), row.alignment);
        }
        for (int i = 0; i < 9; ++i) {
            QCOMPARE(s.child(QStringLiteral("Picture1(%1)").arg(i))->geometry(),
                     QRect(32 + 80 * (i % 3), 32 + 80 * (i / 3), 73, 73));
        }
        s.form.Timer1.Enabled = s.form.Timer2.Enabled = true;
        s.window.sync();
        for (const auto& [name, interval] :
             {std::pair{"Timer1", 10}, {"Timer2", 500}, {"Timer3", 50}}) {
            auto* timer = s.window.findChild<QTimer*>(name);
            QVERIFY(timer->isActive());
            QCOMPARE(timer->interval(), interval);
        }
    }

    // Clicks reach the cell under them up to its outermost pixels and nothing in the gaps; a
    // press that is released outside the cell is no click. Start and Exit take the focus after
    // the cells, Exit first, as TabIndex orders them.
    void clicksAndFocusFollowTheLayout() {
        Shown s;
        for (const QPoint at : {QPoint(32, 32), QPoint(104, 104), QPoint(112, 32), QPoint(264, 264),
                                QPoint(31, 32), QPoint(105, 50), QPoint(50, 111), QPoint(265, 200)})
            s.click(at);
        QCOMPARE(s.form.events, QStringList({"0", "0", "1", "8"}));
        QWidget* cell = s.child("Picture1(4)");
        QTest::mousePress(cell, Qt::LeftButton, {}, QPoint(36, 36));
        QTest::mouseRelease(cell, Qt::LeftButton, {}, QPoint(80, 36));
        QCOMPARE(s.form.events.size(), 4);

        s.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&s.window));
        s.child("Picture1(0)")->setFocus();
        QStringList order;
        for (int i = 0; i < 11; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            order << QApplication::focusWidget()->objectName();
        }
        QCOMPARE(order.mid(7), QStringList({"Picture1(8)", "Command2", "Command1", "Picture1(0)"}));

        s.form.Command1.Enabled = false;
        s.window.sync();
        QTest::mouseClick(s.child("Command1"), Qt::LeftButton);
        QTest::mouseClick(s.child("Command2"), Qt::LeftButton);
        QCOMPARE(s.form.events.mid(4), QStringList({"Command2"}));
        QVERIFY(!s.window.isVisible());
    }

    // A white circle and a black cross with a pen 10 pixels wide, where the strokes' twips put
    // them inside a border of 2 pixels; a hidden cell is gone; the outline takes its colour
    // and the banner is stretched to its bounds.
    void marksAndPicturesAtTheirPixels() {
        Shown s;
        form::MarkPen pen;
        pen.draw_circle(s.form.Picture1[0]);
        pen.draw_cross(s.form.Picture1[1]);
        s.form.Picture1[2].Visible = false;
        s.form.Shape1.BorderColor = 0xFF0000;
        auto frame = std::make_shared<form::Picture>(4, 2, 0xC0C0C0, 0);
        frame->set_ink(3, 1);
        s.form.Image2 = {frame, true, true, {6000, 120, 3610, 1510}};
        s.window.sync();

        const QImage circle = s.child("Picture1(0)")->grab().toImage();
        const QImage cross = s.child("Picture1(1)")->grab().toImage();
        const QColor ground = circle.pixelColor(2, 36), white(Qt::white), black(Qt::black);
        QVERIFY(ground != white && ground != black && circle.pixelColor(1, 36) != ground);
        // Ring centred at 36.5 with a radius of 27.8 and 10 pixels wide; the cross from 8.7
        // to 64.3.
        for (const auto& [x, y, colour] : {std::tuple{36, 5, white},
                                           {36, 12, white},
                                           {36, 16, ground},
                                           {36, 36, ground},
                                           {5, 36, white},
                                           {67, 36, white}})
            QCOMPARE(circle.pixelColor(x, y), colour);
        for (const auto& [x, y, colour] : {std::tuple{10, 10, black},
                                           {63, 63, black},
                                           {10, 63, black},
                                           {20, 26, black},
                                           {36, 20, ground},
                                           {36, 36, black}})
            QCOMPARE(cross.pixelColor(x, y), colour);
        QVERIFY(s.child("Picture1(2)")->isHidden());
        QCOMPARE(s.child("Shape1")->grab().toImage().pixelColor(80, 0), QColor(Qt::blue));
        QCOMPARE(s.child("Image2")->geometry(), QRect(400, 8, 241, 101));
        const QImage banner = s.child("Image2")->grab().toImage();
        QCOMPARE(banner.pixelColor(236, 96), black);
        QCOMPARE(banner.pixelColor(10, 10), QColor(192, 192, 192));
    }

    // The close box ends the window as Exit does, without a procedure of the form.
    void closeBoxClosesOnce() {
        Shown s;
        QSignalSpy closed(&s.window, &form::qt::Window::closed);
        s.window.close();
        s.click({36, 36});
        QCOMPARE(closed.count(), 1);
        QVERIFY(s.form.events.isEmpty());
        for (auto* timer : s.window.findChildren<QTimer*>()) QVERIFY(!timer->isActive());
    }
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
