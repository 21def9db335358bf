#include "form/qt/image_widget.h"

#include <QPainter>

namespace form::qt {

ImageWidget::ImageWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ImageWidget::set_pixmap(const QPixmap& pixmap) {
    if (pixmap.cacheKey() == pixmap_.cacheKey()) return;
    pixmap_ = pixmap;
    update();
}

void ImageWidget::paintEvent(QPaintEvent*) {
    if (pixmap_.isNull()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), pixmap_);
}

}  // namespace form::qt
