// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <QRawFont>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <memory>
#include <string>
#include <vector>

#include "effects/toss.h"
#include "form/layout.h"
#include "form/marks.h"
#include "form/qt/prepared_picture.h"
#include "form/qt/window.h"
#include "game/form1.h"
#include "recording_form.h"

using testing_support::RecordingForm;
using EventLog = std::vector<std::string>;

namespace QTest {
// Shows the events in a failure message.
template <>
char* toString(const EventLog& events) {
    QStringList names;
    for (const auto& name : events) names << QString::fromStdString(name);
    return qstrdup(qPrintable(names.join(QStringLiteral(", "))));
}
}  // namespace QTest

namespace {

// A loaded form in a shown window. The banner timer is off, so no tick slips into the
// events unless a test asks for it.
struct Shown {
    RecordingForm form;
    std::unique_ptr<form::qt::Window> window;

    Shown() {
        form.Timer3.Enabled = false;
        form.load();
        form.events.clear();
        window = std::make_unique<form::qt::Window>(form);
        window->show();
        if (!QTest::qWaitForWindowExposed(window.get())) qFatal("window not exposed");
    }
    template <typename T = QWidget>
    T* child(const QString& name) const {
        auto* widget = window->findChild<T*>(name);
        if (widget == nullptr) qFatal("no child %s", qPrintable(name));
        return widget;
    }
    QImage grab_cell(int index) const {
        return child(QStringLiteral("Picture1(%1)").arg(index))->grab().toImage();
    }
};

// The pixel of a cell widget under a point in twips of the cell's inner area, inside the
// border of two pixels.
QPoint cell_pixel(double x_twips, double y_twips) {
    return {2 + static_cast<int>(x_twips / 15), 2 + static_cast<int>(y_twips / 15)};
}

QColor at(const QImage& image, QPoint p) { return image.pixelColor(p); }

}  // namespace

class WindowTest : public QObject {
    Q_OBJECT

private slots:
    // A click on a cell reaches Picture1_Click with that cell's index, and nothing else.
    void clickOnCellReachesTheForm_data() {
        QTest::addColumn<int>("cell");
        for (int i = 0; i < form::layout::kCellCount; ++i) QTest::addRow("cell %d", i) << i;
    }
    void clickOnCellReachesTheForm() {
        QFETCH(int, cell);
        Shown shown;
        QTest::mouseClick(shown.child(QStringLiteral("Picture1(%1)").arg(cell)), Qt::LeftButton);
        QCOMPARE(shown.form.events, EventLog{"Picture1_Click(" + std::to_string(cell) + ")"});
    }

    // Start disables itself; the window follows, and a second click, by mouse or by key,
    // delivers nothing. The space key presses an enabled button like a click.
    void disabledStartDeliversNothing() {
        Shown shown;
        auto* start = shown.child<QPushButton>(QStringLiteral("Command1"));
        QTest::keyClick(start, Qt::Key_Space);
        QCOMPARE(shown.form.events, EventLog{"Command1_Click"});
        QVERIFY(!start->isEnabled());
        QTest::mouseClick(start, Qt::LeftButton);
        QTest::keyClick(start, Qt::Key_Space);
        QCOMPARE(shown.form.events, EventLog{"Command1_Click"});
    }

    // Tab walks the controls that take the focus in TabIndex order: the cells 0 to 8, then
    // Exit (11) before Start (12), and round again.
    void tabFollowsTabIndex() {
        Shown shown;
        shown.window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(shown.window.get()));
        QStringList order;
        for (int i = 0; i < form::layout::kCellCount; ++i)
            order << QStringLiteral("Picture1(%1)").arg(i);
        order << QStringLiteral("Command2") << QStringLiteral("Command1")
              << QStringLiteral("Picture1(0)");
        shown.child(order.front())->setFocus();
        for (qsizetype i = 1; i < order.size(); ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget()->objectName(), order[i]);
        }
    }

    // Exit unloads the form, and the close box closes the window without a procedure of the
    // form; either way the window closes, says so once, stops its timers and delivers no more.
    void exitAndCloseBoxEndTheWindow_data() {
        QTest::addColumn<bool>("closeBox");
        QTest::addColumn<EventLog>("expected");
        QTest::newRow("Exit button") << false << EventLog{"Command2_Click"};
        QTest::newRow("close box") << true << EventLog{};
    }
    void exitAndCloseBoxEndTheWindow() {
        QFETCH(bool, closeBox);
        QFETCH(EventLog, expected);
        Shown shown;
        QSignalSpy closed(shown.window.get(), &form::qt::Window::closed);
        if (closeBox) {
            shown.window->close();
        } else {
            QTest::mouseClick(shown.child<QPushButton>(QStringLiteral("Command2")), Qt::LeftButton);
        }
        QCOMPARE(closed.count(), 1);
        QVERIFY(!shown.window->isVisible());
        for (auto* timer : shown.window->findChildren<QTimer*>()) QVERIFY(!timer->isActive());
        QTest::mouseClick(shown.child(QStringLiteral("Picture1(0)")), Qt::LeftButton);
        QCOMPARE(shown.form.events, expected);
    }

    // Every control stands at its layout bounds divided by 15 twips a pixel.
    void controlsStandWhereTheLayoutPutsThem_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QRect>("pixels");
        const std::vector<std::pair<const char*, QRect>> rows{
            {"Picture1(0)", {32, 32, 73, 73}},   {"Picture1(1)", {112, 32, 73, 73}},
            {"Picture1(2)", {192, 32, 73, 73}},  {"Picture1(3)", {32, 112, 73, 73}},
            {"Picture1(4)", {112, 112, 73, 73}}, {"Picture1(5)", {192, 112, 73, 73}},
            {"Picture1(6)", {32, 192, 73, 73}},  {"Picture1(7)", {112, 192, 73, 73}},
            {"Picture1(8)", {192, 192, 73, 73}}, {"Command1", {296, 24, 97, 41}},
            {"Command2", {296, 104, 97, 41}},    {"Label1", {288, 176, 161, 57}},
            {"Shape1", {288, 176, 161, 57}},     {"Label2", {104, 336, 161, 49}},
            {"Label3", {296, 240, 353, 193}},    {"Image2", {400, 8, 105, 57}},
        };
        for (const auto& [name, pixels] : rows) QTest::newRow(name) << QString(name) << pixels;
    }
    void controlsStandWhereTheLayoutPutsThem() {
        QFETCH(QString, name);
        QFETCH(QRect, pixels);
        Shown shown;
        QCOMPARE(shown.window->size(), QSize(656, 450));
        QCOMPARE(shown.child(name)->geometry(), pixels);
    }

    // A ticking banner timer reaches the form through a real QTimer, and Image2 follows the
    // form's bounds and picture: ink where the picture has ink, stretched to the bounds.
    void bannerTimerTicksAndImageFollows() {
        Shown shown;
        auto picture = std::make_shared<form::Picture>(4, 2, form::kSilver, form::kBlack);
        picture->set_ink(3, 1);
        shown.form.Image2.picture = picture;
        shown.form.Image2.bounds.Width = 3600;
        shown.form.Image2.bounds.Height = 1500;
        shown.form.Timer3.Enabled = true;
        shown.window->sync();
        QVERIFY(QTest::qWaitFor([&] { return !shown.form.events.empty(); }, 2000));
        QCOMPARE(shown.form.events.front(), "Timer3_Timer");

        auto* image2 = shown.child(QStringLiteral("Image2"));
        QCOMPARE(image2->geometry(), QRect(400, 8, 240, 100));
        const QImage shot = image2->grab().toImage();
        QCOMPARE(at(shot, {235, 95}), QColor(Qt::black));     // the ink pixel, grown
        QCOMPARE(at(shot, {10, 10}), QColor(192, 192, 192));  // ground
        QCOMPARE(at(shot, {235, 10}), QColor(192, 192, 192));
    }

    // A circle is white on its ring and not at its centre; a cross is black on both
    // diagonals and not between them. Positions follow the strokes' twips, 15 to the pixel.
    void marksPaintWhereTheirGeometryPutsThem() {
        Shown shown;
        form::MarkPen pen;
        pen.draw_circle(shown.form.Picture1[0]);
        pen.draw_cross(shown.form.Picture1[1]);
        // After a win every Tag reads "1"; the cells' names still follow what is drawn.
        for (auto& cell : shown.form.Picture1) cell.Tag = "1";
        shown.window->sync();

        const float w = form::layout::kCellScaleWidth;
        const double r = w / 2 - form::MarkPen::kMargin;
        const QImage circle = shown.grab_cell(0);
        for (const auto& [dx, dy] : {std::pair{r, 0.0}, {-r, 0.0}, {0.0, r}, {0.0, -r}}) {
            QCOMPARE(at(circle, cell_pixel(w / 2 + dx, w / 2 + dy)), QColor(Qt::white));
        }
        const QColor ground = at(circle, cell_pixel(w / 2, w / 2));
        QVERIFY(ground != QColor(Qt::white) && ground != QColor(Qt::black));

        const QImage cross = shown.grab_cell(1);
        for (const double t : {150.0, 300.0, w / 2.0, 700.0, 900.0}) {
            QCOMPARE(at(cross, cell_pixel(t, t)), QColor(Qt::black));
            QCOMPARE(at(cross, cell_pixel(t, w - t)), QColor(Qt::black));
        }
        QCOMPARE(at(cross, cell_pixel(w / 2, 150)), ground);
        QCOMPARE(at(cross, cell_pixel(150, w / 2)), ground);
        QCOMPARE(at(shown.grab_cell(2), cell_pixel(w / 2, w / 2)), ground);

        QCOMPARE(shown.child(QStringLiteral("Picture1(0)"))->accessibleName(), "第1行第1列，圆");
        QCOMPARE(shown.child(QStringLiteral("Picture1(1)"))->accessibleName(), "第1行第2列，叉");
        QCOMPARE(shown.child(QStringLiteral("Picture1(2)"))->accessibleName(), "第1行第3列，空");
    }

    // Assistive tools are told a caption once it settles: Label1's name holds still through
    // the toss and takes the caption when Timer1 stops; a name changes only with a caption.
    void captionNamesSettleAfterTheToss() {
        Shown shown;
        auto* label1 = shown.child(QStringLiteral("Label1"));
        shown.form.Timer1.Enabled = true;
        for (const char* caption : {"计算机先", "您先", "计算机先"}) {
            shown.form.Label1.Caption = caption;
            shown.window->sync();
            QCOMPARE(label1->accessibleName(), "正在决定谁先");
        }
        shown.form.Timer1.Enabled = false;
        shown.window->sync();
        QCOMPARE(label1->accessibleName(), "计算机先");
        shown.form.Label2.Caption = "你赢了";
        shown.window->sync();
        QCOMPARE(shown.child(QStringLiteral("Label2"))->accessibleName(), "你赢了");
        QVERIFY(shown.child(QStringLiteral("Label3"))->accessibleName().startsWith("游戏规则"));
    }

    // The cell keeps its strokes while hidden, so showing it again shows the mark.
    void hiddenCellShownAgainRepaintsItsMark() {
        Shown shown;
        form::MarkPen().draw_circle(shown.form.Picture1[4]);
        auto& cell = shown.form.Picture1[4];
        auto* widget = shown.child(QStringLiteral("Picture1(4)"));
        const QPoint on_ring = cell_pixel(cell.ScaleWidth / 2, form::MarkPen::kMargin);

        cell.Visible = false;
        shown.window->sync();
        QVERIFY(widget->isHidden());
        cell.Visible = true;
        shown.window->sync();
        QVERIFY(widget->isVisible());
        QCOMPARE(at(shown.grab_cell(4), on_ring), QColor(Qt::white));
    }

    // Each font in use holds every character of every text the window shows, so none turns
    // into a box; it is the layout's face or the program's own stand-in for it, sized at
    // 96 dpi.
    void fontsHoldEveryCharacterTheyShow_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("face");
        QTest::addColumn<int>("pixelSize");
        QTest::newRow("buttons") << "Command1"
                                 << "隶书" << 29;
        QTest::newRow("rules") << "Label3"
                               << "隶书" << 21;
        QTest::newRow("captions") << "Label1"
                                  << "宋体" << 35;
        QTest::newRow("results") << "Label2"
                                 << "宋体" << 35;
    }
    void fontsHoldEveryCharacterTheyShow() {
        QFETCH(QString, name);
        QFETCH(QString, face);
        QFETCH(int, pixelSize);
        Shown shown;
        const QFont font = shown.child(name)->font();
        QCOMPARE(font.pixelSize(), pixelSize);
        const QRawFont raw = QRawFont::fromFont(font);
        QVERIFY(raw.isValid());
        const QStringList allowed{face, form::qt::FontBook::stand_in_family(face.toUtf8())};
        QVERIFY2(allowed.contains(raw.familyName()), qPrintable(raw.familyName()));

        QString texts;
        for (const auto text :
             {std::string_view(form::layout::kStartCaption),
              std::string_view(form::layout::kExitCaption),
              std::string_view(form::layout::kRulesCaption), effects::kHumanFirst,
              effects::kComputerFirst, game::kHumanWins, game::kHumanLoses, game::kDraw}) {
            texts += QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        }
        for (const char32_t c : texts.toUcs4()) {
            QVERIFY2(raw.supportsCharacter(c), qPrintable(QString::fromUcs4(&c, 1)));
        }
    }

    // Ink and ground land on the right pixels across the byte boundary of a row, and a
    // picture is decoded once however often it is shown.
    void picturesDecodeOnceAndBitExact() {
        form::Picture picture(10, 2, form::kSilver, form::kBlue);
        picture.set_ink(0, 0);
        picture.set_ink(9, 0);
        picture.set_ink(8, 1);
        const QImage image = form::qt::to_image(picture);
        for (int y = 0; y < 2; ++y) {
            for (int x = 0; x < 10; ++x) {
                const QColor expected =
                    picture.is_ink(x, y) ? QColor(0, 0, 255) : QColor(192, 192, 192);
                QCOMPARE(image.pixelColor(x, y), expected);
            }
        }

        form::qt::PreparedPictures cache;
        const auto shared = std::make_shared<const form::Picture>(picture);
        const auto other = std::make_shared<const form::Picture>(picture);
        const auto* first = &cache.prepared(shared, QSize(10, 2), 1);
        QCOMPARE(&cache.prepared(shared, QSize(10, 2), 1), first);
        QCOMPARE(first->ink.pixelColor(0, 0), QColor(0, 0, 255));
        QVERIFY(cache.prepared(other, QSize(10, 2), 1).ink.cacheKey() != first->ink.cacheKey());
    }
};

QTEST_MAIN(WindowTest)
#include "window_test.moc"
