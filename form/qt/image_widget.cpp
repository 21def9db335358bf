#include "form/qt/image_widget.h"

#include <QPainter>

namespace form::qt {

ImageWidget::ImageWidget(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ImageWidget::set_image(const QImage& image) {
    if (image.cacheKey() == image_.cacheKey()) return;
    image_ = image;
    update();
}

void ImageWidget::paintEvent(QPaintEvent*) {
    if (image_.isNull()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(rect(), image_);
}

}  // namespace form::qt
