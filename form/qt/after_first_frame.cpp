// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/after_first_frame.h"

#include <QEvent>
#include <QWindow>

#include <utility>

namespace form::qt {

namespace {

// Watches the native window for its first exposure. Qt paints and flushes the whole frame
// while it handles that event, so a call queued from here runs once the frame is out.
class FirstFrameWatch : public QObject {
public:
    FirstFrameWatch(QWindow& window, std::function<void()> task)
        : QObject(&window), task_(std::move(task)) {
        window.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Expose && static_cast<QWindow*>(watched)->isExposed()) {
            watched->removeEventFilter(this);
            QMetaObject::invokeMethod(
                this,
                [this] {
                    task_();
                    deleteLater();
                },
                Qt::QueuedConnection);
        }
        return false;
    }

private:
    std::function<void()> task_;
};

}  // namespace

void after_first_frame(QWidget& window, std::function<void()> task) {
    QWindow* native = window.windowHandle();
    if (native == nullptr) {
        task();
        return;
    }
    new FirstFrameWatch(*native, std::move(task));  // owned by the native window
}

}  // namespace form::qt
