#include "display/zoom.h"

#include "core/app.h"

#include <algorithm>
#include <cmath>

namespace nebkaro {

int clampZoom(int percent) {
    return std::clamp(percent, MinZoom, MaxZoom);
}

int zoomedIn(int percent) {
    for (int step : ZoomSteps)
        if (step > percent) return step;
    return MaxZoom;
}

int zoomedOut(int percent) {
    int out = MinZoom;
    for (int step : ZoomSteps)
        if (step < percent) out = step;
    return out;
}

Rect zoomedBox(const Rect& box, const Rect& area, int percent) {
    const double k = clampZoom(percent) / 100.0;
    const double cx = area.left + area.width / 2.0, cy = area.top + area.height / 2.0;
    auto at = [k](double v, double c) { return static_cast<int>(std::lround(c + (v - c) * k)); };
    Rect out;
    out.left = at(box.left, cx);
    out.top = at(box.top, cy);
    out.width = at(box.left + box.width, cx) - out.left;
    out.height = at(box.top + box.height, cy) - out.top;
    return out;
}

void zoomIn(App& app) {
    app.settings.wordZoom = zoomedIn(app.settings.wordZoom);
}

void zoomOut(App& app) {
    app.settings.wordZoom = zoomedOut(app.settings.wordZoom);
}

void zoomReset(App& app) {
    app.settings.wordZoom = MinZoom;
}

} // namespace nebkaro
