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
    // Decoding the icon's pictures costs a tenth of the start-up; window managers take an icon
    // whenever it is set, so it follows the first frame.
    form::qt::after_first_frame(window, [] {
        QIcon icon;
        for (const int size : {48, 256}) {
            icon.addFile(QStringLiteral(":/icons/%1x%1/io.github.sanlian.Sanlian.png").arg(size));
        }
        QApplication::setWindowIcon(icon);
    });
    return QApplication::exec();
}
