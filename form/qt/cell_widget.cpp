// SPDX-FileCopyrightText: 2026 Sanlian developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "form/qt/cell_widget.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>

#include <variant>

#include "form/appearance.h"
#include "form/layout.h"
#include "form/qt/geometry.h"

namespace form::qt {

namespace {

constexpr int kBorder = layout::kCellBorderPixels;

// The cell's ground inside its border, a ring of one pixel for each shade. Each ring is its
// bottom right shade over the whole, then its top left shade over all but the last row and
// column. Qt's qDrawWinPanel draws the same shades, but on Qt 6.4 each ring only one device
// pixel wide above a device pixel ratio of 1.
void draw_panel(QPainter& painter, const QRect& rect) {
    const auto& bevel = appearance::kCellBevel;
    const std::pair<QRect, Colour> layers[] = {
        {rect, bevel.outer_bottom_right},
        {rect.adjusted(0, 0, -1, -1), bevel.outer_top_left},
        {rect.adjusted(1, 1, -1, -1), bevel.inner_bottom_right},
        {rect.adjusted(1, 1, -2, -2), bevel.inner_top_left},
        {rect.adjusted(kBorder, kBorder, -kBorder, -kBorder), appearance::kCellBackground}};
    for (const auto& [r, colour] : layers) painter.fillRect(r, to_qcolor(colour));
}

// The cell's strokes, in twips of its inner area, clipped to it.
void draw_strokes(QPainter& painter, const QRect& inner, const PictureBox& cell) {
    painter.save();
    painter.setClipRect(inner);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(inner.topLeft());
    const double scale = 1.0 / layout::kTwipsPerPixel;
    painter.scale(scale, scale);
    const auto pen = [&](Colour colour) {
        // In twips, since the painter scales: DrawWidth pixels wide, round ends as GDI draws.
        return QPen(to_qcolor(colour), cell.DrawWidth * layout::kTwipsPerPixel, Qt::SolidLine,
                    Qt::RoundCap, Qt::RoundJoin);
    };
    for (const auto& stroke : cell.strokes()) {
        if (const auto* c = std::get_if<CircleStroke>(&stroke)) {
            painter.setPen(pen(c->colour));
            painter.drawEllipse(QPointF(c->x, c->y), c->radius, c->radius);
        } else if (const auto* l = std::get_if<LineStroke>(&stroke)) {
            painter.setPen(pen(l->colour));
            painter.drawLine(QPointF(l->x1, l->y1), QPointF(l->x2, l->y2));
        }
    }
    painter.restore();
}

// A cell of the board rather than a bare panel. Its press goes where the mouse's click goes,
// through clicked(); a hidden cell takes no press, as it takes no click.
class CellAccessible : public QAccessibleWidget {
public:
    explicit CellAccessible(CellWidget* cell) : QAccessibleWidget(cell, QAccessible::Cell) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (!cell().playable()) state.disabled = true;
        return state;
    }
    // Press first, whether or not the cell can be played now, so that it keeps its index.
    QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name != pressAction()) {
            QAccessibleWidget::doAction(name);
        } else if (cell().isVisible()) {
            emit cell().clicked();
        }
    }

private:
    CellWidget& cell() const { return *static_cast<CellWidget*>(widget()); }
};

// Qt's accessibility cache owns what a factory returns.
QAccessibleInterface* cell_accessible(const QString&, QObject* object) {
    auto* cell = qobject_cast<CellWidget*>(object);
    return cell != nullptr ? new CellAccessible(cell) : nullptr;
}

// Where the keyboard focus is, as a dotted rectangle just inside the border: black dashes
// over white, so it shows on the ground and on either mark.
void draw_focus_mark(QPainter& painter, const QRect& inner) {
    const QRect mark = inner.adjusted(2, 2, -3, -3);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(mark);
    QPen dashes(Qt::black, 1, Qt::CustomDashLine);
    dashes.setDashPattern({2, 2});
    painter.setPen(dashes);
    painter.drawRect(mark);
}

}  // namespace

CellWidget::CellWidget(const Form& form, int index, QWidget* parent)
    : QWidget(parent), form_(form), index_(index) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    QAccessible::installFactory(cell_accessible);  // once: a second install is ignored
}

// Border and ground, the strokes, then the focus mark over them.
void CellWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    draw_panel(painter, rect());
    const QRect inner = rect().adjusted(kBorder, kBorder, -kBorder, -kBorder);
    draw_strokes(painter, inner, form_.Picture1[static_cast<std::size_t>(index_)]);
    // Shown on the same condition as a button's focus: the focus came from the keyboard.
    QStyleOption option;
    option.initFrom(this);
    if (option.state.testFlags(QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange)) {
        draw_focus_mark(painter, inner);
    }
}

void CellWidget::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->button() == Qt::LeftButton;
    QWidget::mousePressEvent(event);
}

// The second press of a double click is no second click.
void CellWidget::mouseDoubleClickEvent(QMouseEvent* event) {
    pressed_ = false;
    event->accept();
}

void CellWidget::mouseReleaseEvent(QMouseEvent* event) {
    const bool click = pressed_ && event->button() == Qt::LeftButton &&
                       rect().contains(event->position().toPoint());
    pressed_ = false;
    if (click) emit clicked();
}

}  // namespace form::qt
