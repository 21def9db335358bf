// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QAccessibleObject>
#include <QApplication>
#include <QCommandLineParser>
#include <QIcon>

#include <cstdio>
#include <cstdlib>

#include "form/qt/after_first_frame.h"
#include "form/qt/window.h"
#include "form/texts.h"
#include "game/form1.h"

namespace {

// --help and --version answer on the terminal before QApplication exists, so they need no
// display; returns if neither was asked for. Until QApplication has taken Qt's own arguments
// they are unknown options to the parser, and left alone.
void answer_on_terminal(QCommandLineParser& options, int& argc, char* argv[]) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    options.parse(arguments);
    const bool version = options.isSet(QStringLiteral("version"));
    if (!version && !options.isSet(QStringLiteral("help"))) return;
    // Qt names the program by its file in the usage line and the version line.
    const QCoreApplication terminal(argc, argv);
    if (version) options.showVersion();
    options.showHelp();
}

// Qt ends a program that can open no display with qFatal, which aborts and dumps core, after
// a message from each platform plugin it tried. While QApplication opens the display, this
// handler keeps those messages back, lets only debugging output through (which
// QT_LOGGING_RULES or QT_DEBUG_PLUGINS asks for), and turns the fatal one into one line that
// gives Qt's reasons, with status 1.
void while_opening_display(QtMsgType type, const QMessageLogContext& context,
                           const QString& message) {
    // A message handler is a plain function: what Qt said before its fatal message waits here.
    static QStringList reasons;
    if (type == QtDebugMsg) {
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, message)));
    } else if (type != QtFatalMsg) {
        reasons << message.simplified();
    } else {
        if (reasons.isEmpty()) reasons << message.simplified();
        std::fprintf(stderr, "sanlian: cannot open a display: %s\n",
                     qPrintable(reasons.join(QStringLiteral("; "))));
        std::_Exit(EXIT_FAILURE);
    }
}

// Assistive tools read the application by its accessible name, which Qt takes from
// applicationName(); that stays the desktop entry's id, which X11's WM_CLASS and the Wayland
// app id must carry. This one reads the display name instead.
class NamedApplication final : public QAccessibleApplication {
public:
    QString text(QAccessible::Text t) const override {
        return t == QAccessible::Name ? QGuiApplication::applicationDisplayName()
                                      : QAccessibleApplication::text(t);
    }
};

QAccessibleInterface* named_application(const QString&, QObject* object) {
    return object == QCoreApplication::instance() ? new NamedApplication : nullptr;
}

}  // namespace

// The program is the one form: it runs until the form unloads or its window is closed, and
// with it the last window.
int main(int argc, char* argv[]) {
    QCoreApplication::setApplicationVersion(QStringLiteral(SANLIAN_VERSION));
    QCommandLineParser options;
    options.setApplicationDescription(
        QStringLiteral("Noughts and crosses against the computer, in a window of its own."));
    // -reverse is Qt's, not -r -e -v -e -r -s -e: a word after one dash is one option.
    options.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    options.addHelpOption();
    options.addVersionOption();
    if (argc > 1) answer_on_terminal(options, argc, argv);

    // The name people know the game by, which assistive tools read; a window title that ends
    // with it, as the window's own does, shows unchanged. Set before QApplication, which may ask
    // for the application's accessible interface as it starts.
    QGuiApplication::setApplicationDisplayName(QString::fromUtf8(form::texts::kFormCaption));
    QAccessible::installFactory(named_application);
    const QtMessageHandler previous = qInstallMessageHandler(while_opening_display);
    QApplication app(argc, argv);
    qInstallMessageHandler(previous);
    // QApplication took its own arguments out of argv. What is left must be an option of the
    // program's: --help-all, which lists Qt's arguments too and so answers now, or "--".
    for (int i = 1; i < argc; ++i) {
        if (!options.parse({QString(), QString::fromLocal8Bit(argv[i])}) ||
            !options.positionalArguments().isEmpty()) {
            std::fprintf(stderr,
                         "sanlian: unknown argument '%s'; sanlian --help lists the options\n",
                         argv[i]);
            return EXIT_FAILURE;
        }
    }
    options.process(app);
    // Docks and task switchers find the desktop entry, with its name and icon, by the
    // window's Wayland app id (the desktop file name) or its X11 WM_CLASS (whose class is
    // the application name): both are the entry's id.
    const QString entry = QStringLiteral(SANLIAN_APP_ID);
    QGuiApplication::setDesktopFileName(entry);
    QCoreApplication::setApplicationName(entry);
    game::Form1 form;
    form::qt::Window window(form);
    window.show_changed(form.load());
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
