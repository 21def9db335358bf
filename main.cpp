// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QApplication>

#include "form/qt/window.h"
#include "game/form1.h"

// The program is the one form: it runs until the form unloads or its window is closed.
int main(int argc, char* argv[]) {
    QApplication app(argc, argv);
    game::Form1 form;
    form::qt::Window window(form);
    QObject::connect(&window, &form::qt::Window::closed, &app, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    form.load();
    window.sync();
    if (form.unloaded()) return 0;
    window.show();
    return QApplication::exec();
}
