#include "display/zoom.h"

#include "core/app.h"

#include <algorithm>
#include <cmath>

namespace nebkaro {

int ClampZoom(int percent) {
    return std::clamp(percent, MinZoom, MaxZoom);
}

int ZoomedIn(int percent) {
    for (int step : ZoomSteps)
        if (step > percent) return step;
    return MaxZoom;
}

int ZoomedOut(int percent) {
    int out = MinZoom;
    for (int step : ZoomSteps)
        if (step < percent) out = step;
    return out;
}

Rect ZoomedBox(const Rect& box, const Rect& area, int percent) {
    const double k = ClampZoom(percent) / 100.0;
    const double cx = area.left + area.width / 2.0, cy = area.top + area.height / 2.0;
    auto at = [k](double v, double c) { return static_cast<int>(std::lround(c + (v - c) * k)); };
    Rect out;
    out.left = at(box.left, cx);
    out.top = at(box.top, cy);
    out.width = at(box.left + box.width, cx) - out.left;
    out.height = at(box.top + box.height, cy) - out.top;
    return out;
}

void ZoomIn(App& app) {
    app.settings.wordZoom = ZoomedIn(app.settings.wordZoom);
}

void ZoomOut(App& app) {
    app.settings.wordZoom = ZoomedOut(app.settings.wordZoom);
}

void ZoomReset(App& app) {
    app.settings.wordZoom = MinZoom;
}

} // namespace nebkaro
