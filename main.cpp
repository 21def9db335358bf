// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>

#include <cstdio>
#include <cstdlib>

#include "form/qt/after_first_frame.h"
#include "form/qt/window.h"
#include "game/form1.h"

namespace {

// Given arguments, the program answers on the terminal and opens no window, so it needs no
// display: --help and --version with status 0, anything else with one line naming it and
// status 1.
int answer_arguments(int argc, char* argv[]) {
    const QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Noughts and crosses against the computer, in a window of its own."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help and exit."));
    const QCommandLineOption version(
        {QStringLiteral("v"), QStringLiteral("version")},
        QStringLiteral("Show the program's name and version and exit."));
    parser.addOptions({help, version});
    QString error;
    if (!parser.parse(QCoreApplication::arguments())) {
        error = parser.errorText();
    } else if (parser.isSet(help)) {
        std::fputs(qPrintable(parser.helpText()), stdout);
        return EXIT_SUCCESS;
    } else if (parser.isSet(version)) {
        std::puts("sanlian " SANLIAN_VERSION);
        return EXIT_SUCCESS;
    } else {  // arguments that are no options, or a lone "--"
        error = QStringLiteral("Unexpected argument '%1'.")
                    .arg(parser.positionalArguments().value(0, QStringLiteral("--")));
    }
    std::fprintf(stderr, "sanlian: %s\n", qPrintable(error));
    return EXIT_FAILURE;
}

// Qt ends a program that can open no display with qFatal, which aborts and dumps core, after
// a message from each platform plugin it tried. While QApplication opens the display, this
// handler drops those messages, lets only debugging output through (which QT_LOGGING_RULES or
// QT_DEBUG_PLUGINS asks for), and turns the fatal one into one line and status 1.
void while_opening_display(QtMsgType type, const QMessageLogContext& context,
                           const QString& message) {
    if (type == QtDebugMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    } else if (type == QtFatalMsg) {
        std::fputs("sanlian: cannot open a display; the game needs a desktop (X11 or Wayland)\n",
                   stderr);
        std::_Exit(EXIT_FAILURE);
    }
}

}  // namespace

// The program is the one form: it runs until the form unloads or its window is closed.
int main(int argc, char* argv[]) {
    if (argc > 1) return answer_arguments(argc, argv);
    const QtMessageHandler previous = qInstallMessageHandler(while_opening_display);
    QApplication app(argc, argv);
    qInstallMessageHandler(previous);
    // Docks and task switchers find the desktop entry, with its name and icon, by the
    // window's Wayland app id (the desktop file name) or its X11 WM_CLASS (whose class is
    // the application name): both are the entry's id.
    const QString entry = QStringLiteral(SANLIAN_APP_ID);
    QGuiApplication::setDesktopFileName(entry);
    QCoreApplication::setApplicationName(entry);
    game::Form1 form;
    form::qt::Window window(form);
    QObject::connect(&window, &form::qt::Window::closed, &app, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    form.load();
    window.sync();
    if (form.unloaded()) return 0;
    window.show();
    // The first frame need not wait for an icon to be decoded: window managers take one
    // whenever it is set. Docks and switchers show the desktop entry's icon, which the package
    // installs scalable; this one is for those that read only the window's, and a 256-pixel
    // picture would hold a quarter of a megabyte for them.
    form::qt::after_first_frame(window, [] {
        QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/48x48/sanlian.png")));
    });
    return QApplication::exec();
}
