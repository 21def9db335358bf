#pragma once

#include <QPixmap>
#include <QWidget>

namespace form::qt {

// A picture stretched to the whole widget; nothing at all without a picture.
class ImageWidget : public QWidget {
public:
    explicit ImageWidget(QWidget* parent);

    void set_pixmap(const QPixmap& pixmap);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap pixmap_;
};

}  // namespace form::qt
