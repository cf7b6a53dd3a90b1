// What stands in a landscape: houses, trees, boats, the lighthouse and flowers, each drawn at a base
// point and a size s in pixels.
#pragma once

#include "landscape.h"

#include <QPainterPath>

#include <functional>
#include <vector>

namespace picturegen
{

void drawHouse(Canvas &c, QPointF base, double s);
void drawTree(Canvas &c, QPointF base, double s);
// A boat floating with its waterline at `at`, with its reflection below.
void drawBoat(Canvas &c, QPointF at, double s);
void drawLighthouse(Canvas &c, QPointF base, double s);
// Scatters up to count flowers over the near part of an area.
void drawFlowers(Canvas &c, const QPainterPath &area, int count);

// Things standing on the ground are drawn far to near so that nearer ones cover farther ones.
struct Prop {
    double y;
    std::function<void()> draw;
};

void drawProps(std::vector<Prop> &props);

} // namespace picturegen
