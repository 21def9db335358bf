// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QApplication>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>

#include "form/qt/window.h"
#include "recording_form.h"

namespace {

// Relative luminance and contrast ratio as WCAG 2 defines them.
double luminance(QColor c) {
    const auto linear = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

// A caption as shown, inside its control's edge: the commonest colour is its ground, the
// colour farthest from that its text.
double caption_contrast(QWidget& window, const char* name) {
    const QImage shot =
        window.grab(window.findChild<QWidget*>(name)->geometry().adjusted(4, 4, -4, -4)).toImage();
    std::map<QRgb, int> counts;
    for (int y = 0; y < shot.height(); ++y) {
        for (int x = 0; x < shot.width(); ++x) ++counts[shot.pixel(x, y)];
    }
    const double ground =
        luminance(std::ranges::max_element(counts, {}, [](auto& c) { return c.second; })->first);
    double most = 1;
    for (const auto& [rgb, n] : counts) {
        const double text = luminance(QColor(rgb));
        most = std::max(most, (std::max(text, ground) + 0.05) / (std::min(text, ground) + 0.05));
    }
    return most;
}

struct Shown {
    testing_support::RecordingForm form;
    std::unique_ptr<form::qt::Window> window;
    Shown() {
        form.Timer3.Enabled = false;
        form.load();
        form.Label1.Caption = "您先";
        form.Label2.Caption = "和局！";
        form.Label2.ForeColor = 0xFF0000;  // blue
        window = std::make_unique<form::qt::Window>(form);
        window->show();
        if (!QTest::qWaitForWindowExposed(window.get())) qFatal("window not exposed");
    }
    QWidget* cell(int i) const {
        return window->findChild<QWidget*>(QStringLiteral("Picture1(%1)").arg(i));
    }
};

}  // namespace

// The window on the desktops it meets: their palettes, keyboard focus and double clicks.
class DesktopTest : public QObject {
    Q_OBJECT

private slots:
    void captionsReadOnAnyPalette_data() {
        QTest::addColumn<QPalette>("desktop");
        QTest::newRow("default") << QApplication::palette();
        // qt6ct's "darker" scheme: white text on dark grey, grey when disabled.
        QPalette darker(QColor(0x42, 0x42, 0x45), QColor(0x22, 0x20, 0x20));
        darker.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x80, 0x80, 0x80));
        QTest::newRow("darker") << darker;
        QTest::newRow("high contrast") << QPalette(Qt::black, Qt::black);
    }
    void captionsReadOnAnyPalette() {
        QFETCH(QPalette, desktop);
        QApplication::setPalette(desktop);
        Shown shown;
        for (const char* name : {"Command1", "Command2", "Label1", "Label2", "Label3"}) {
            QVERIFY2(caption_contrast(*shown.window, name) >= 4.5, name);
        }
        // A disabled Start is legible but clearly fainter than the enabled Exit.
        shown.form.Command1.Enabled = false;
        shown.window->sync();
        const double start = caption_contrast(*shown.window, "Command1");
        QVERIFY(start >= 4.5 && start < 0.75 * caption_contrast(*shown.window, "Command2"));
    }

    // Tab marks the cell it reaches, inside the cell's border of two pixels.
    void tabMarksTheFocusedCell() {
        Shown shown;
        const QImage before = shown.cell(1)->grab().toImage();
        shown.cell(0)->setFocus();
        QTest::keyClick(shown.cell(0), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), shown.cell(1));
        const QImage after = shown.cell(1)->grab().toImage();
        QRect changed;
        for (int y = 0; y < after.height(); ++y) {
            for (int x = 0; x < after.width(); ++x) {
                if (after.pixel(x, y) != before.pixel(x, y)) changed |= QRect(x, y, 1, 1);
            }
        }
        QVERIFY(!changed.isEmpty() && after.rect().adjusted(2, 2, -2, -2).contains(changed));
    }

    void doubleClickIsOneClick() {
        Shown shown;
        shown.form.events.clear();
        // As Qt delivers a double click: press, release, double click, release.
        QTest::mouseClick(shown.cell(4), Qt::LeftButton);
        QTest::mouseDClick(shown.cell(4), Qt::LeftButton);
        QTest::mouseRelease(shown.cell(4), Qt::LeftButton);
        QCOMPARE(shown.form.events, std::vector<std::string>{"Picture1_Click(4)"});
    }
};

QTEST_MAIN(DesktopTest)
#include "desktop_test.moc"
