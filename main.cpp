// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QApplication>
#include <QIcon>

#include "form/qt/after_first_frame.h"
#include "form/qt/window.h"
#include "game/form1.h"

// The program is the one form: it runs until the form unloads or its window is closed.
int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    // Docks and task switchers find the desktop entry, with its name and icon, by the
    // window's Wayland app id (the desktop file name) or its X11 WM_CLASS (whose class is
    // the application name): both are the entry's id.
    const QString entry = QStringLiteral("io.github.sanlian.Sanlian");
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
        QApplication::setWindowIcon(
            QIcon(QStringLiteral(":/icons/48x48/io.github.sanlian.Sanlian.png")));
    });
    return QApplication::exec();
}
