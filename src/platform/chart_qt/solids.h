// Flat outlines given depth: each is swept from the front to the back, and the faces that are seen
// are painted, the ones that turn away from the light darker.
#pragma once

#include <QColor>
#include <QPainter>
#include <QPolygonF>

namespace tela {

/// Paints the solid whose front is the closed outline `front`, and which reaches back by `depth`
/// (to the right and up on the screen).
void paint_solid(QPainter& painter, const QPolygonF& front, QPointF depth, const QColor& colour);

/// Paints the band that the open `line` leaves when it is swept back by `depth`.
void paint_ribbon(QPainter& painter, const QPolygonF& line, QPointF depth, const QColor& colour);

}  // namespace tela
