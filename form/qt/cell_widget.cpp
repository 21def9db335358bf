#include "form/qt/cell_widget.h"

#include <QMouseEvent>
#include <QPainter>

#include <type_traits>
#include <variant>

#include "form/layout.h"
#include "form/qt/geometry.h"
#include "form/text.h"

namespace form::qt {

namespace {

constexpr int kBorder = layout::kCellBorderPixels;

// The classic client edge: shadow over highlight outside, dark shadow over light inside.
void draw_sunken_border(QPainter& painter, const QRect& rect) {
    const auto edge = [&](int inset, QColor top_left, QColor bottom_right) {
        const QRect r = rect.adjusted(inset, inset, -inset, -inset);
        painter.fillRect(r.left(), r.top(), r.width(), 1, top_left);
        painter.fillRect(r.left(), r.top(), 1, r.height(), top_left);
        painter.fillRect(r.left(), r.bottom(), r.width(), 1, bottom_right);
        painter.fillRect(r.right(), r.top(), 1, r.height(), bottom_right);
    };
    edge(0, QColor(128, 128, 128), QColor(255, 255, 255));
    edge(1, QColor(64, 64, 64), QColor(192, 192, 192));
}

QString mark_name(const std::string& tag) {
    switch (numeric_value(tag)) {
        case 1:
            return QStringLiteral("圆");
        case -1:
            return QStringLiteral("叉");
        default:
            return QStringLiteral("空");
    }
}

}  // namespace

CellWidget::CellWidget(int row, int column, QWidget* parent)
    : QWidget(parent), position_name_(QStringLiteral("第%1行第%2列").arg(row).arg(column)) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void CellWidget::show_state(const PictureBox& cell) {
    setGeometry(pixel_rect(cell.bounds));
    // Only a change is announced to assistive tools, not every tick's sync.
    const QString name = position_name_ + QStringLiteral("，") + mark_name(cell.Tag);
    if (accessibleName() != name) setAccessibleName(name);
    if (cell.strokes() != strokes_ || cell.DrawWidth != draw_width_) {
        strokes_ = cell.strokes();
        draw_width_ = cell.DrawWidth;
        update();
    }
    setVisible(cell.Visible);
}

void CellWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    draw_sunken_border(painter, rect());
    const QRect inner = rect().adjusted(kBorder, kBorder, -kBorder, -kBorder);
    painter.fillRect(inner, to_qcolor(kCellBackground));

    painter.setClipRect(inner);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(inner.topLeft());
    const double scale = 1.0 / layout::kTwipsPerPixel;
    painter.scale(scale, scale);
    const auto pen = [&](Colour colour) {
        // In twips, since the painter scales: DrawWidth pixels wide, round ends as GDI draws.
        return QPen(to_qcolor(colour), draw_width_ * layout::kTwipsPerPixel, Qt::SolidLine,
                    Qt::RoundCap, Qt::RoundJoin);
    };
    for (const auto& stroke : strokes_) {
        std::visit(
            [&](const auto& s) {
                painter.setPen(pen(s.colour));
                if constexpr (std::is_same_v<std::decay_t<decltype(s)>, CircleStroke>) {
                    painter.drawEllipse(QPointF(s.x, s.y), s.radius, s.radius);
                } else {
                    painter.drawLine(QPointF(s.x1, s.y1), QPointF(s.x2, s.y2));
                }
            },
            stroke);
    }
}

void CellWidget::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton;
    QWidget::mousePressEvent(event);
}

void CellWidget::mouseReleaseEvent(QMouseEvent* event) {
    const bool click = pressed_ && event->button() == Qt::LeftButton &&
                       rect().contains(event->position().toPoint());
    pressed_ = false;
    if (click) emit clicked();
}

}  // namespace form::qt
