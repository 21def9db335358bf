// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The window's captions under the palettes of other desktops.

#include <QApplication>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <vector>

#include "form/qt/window.h"
#include "recording_form.h"

// The contrast of a control's caption as WCAG 2 measures it: well inside its edge and corners, the
// lightest colour against the darkest, one of them the text and the other its ground.
static double caption_contrast(QWidget& window, const char* name) {
    const QImage shot =
        window.grab(window.findChild<QWidget*>(name)->geometry().adjusted(10, 10, -10, -10))
            .toImage();
    const auto linear = [](int v) {
        return v <= 10 ? v / 3294.6 : std::pow((v / 255.0 + 0.055) / 1.055, 2.4);
    };
    std::vector<double> luminances;  // with WCAG's flare term, so contrast is a plain ratio
    for (int i = 0; i < shot.width() * shot.height(); ++i) {
        const QRgb c = shot.pixel(i % shot.width(), i / shot.width());
        luminances.push_back(0.05 + 0.2126 * linear(qRed(c)) + 0.7152 * linear(qGreen(c)) +
                             0.0722 * linear(qBlue(c)));
    }
    const auto [darkest, lightest] = std::ranges::minmax(luminances);
    return lightest / darkest;
}

class DesktopTest : public QObject {
    Q_OBJECT

private slots:
    // The default palette, qt6ct's "darker" scheme and a high-contrast one.
    void captionsReadOnAnyPalette() {
        const QPalette darker(QColor(0x42, 0x42, 0x45), QColor(0x22, 0x20, 0x20));
        for (const QPalette& desktop : {QApplication::palette(), darker, QPalette(Qt::black)}) {
            QApplication::setPalette(desktop);
            testing_support::RecordingForm form;
            // The toss's red caption and a draw's blue one, colours written 0xBBGGRR.
            form.Label1.Caption = "计算机先";
            form.Label1.ForeColor = 0x0000FF;
            form.Label2.Caption = "和局！";
            form.Label2.ForeColor = 0xFF0000;
            form::qt::Window window(form);
            for (const char* name : {"Command1", "Command2", "Label1", "Label2", "Label3"})
                QVERIFY2(caption_contrast(window, name) >= 4.5, name);
            // A disabled Start stays legible but reads clearly fainter than the enabled Exit.
            form.Command1.Enabled = false;
            window.sync();
            const double start = caption_contrast(window, "Command1");
            QVERIFY(start >= 4.5 && start < 0.75 * caption_contrast(window, "Command2"));
        }
    }
};

QTEST_MAIN(DesktopTest)
#include "desktop_test.moc"
