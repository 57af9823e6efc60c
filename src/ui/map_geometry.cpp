#include "map_geometry.h"

#include "map_canvas.h"
#include "minimap_canvas.h"

#include <cmath>

int cellUnder(float coordinate, int tileSize) {
    return static_cast<int>(std::nearbyint(coordinate)) / tileSize;  // rounds half to even
}

Placement scrollAtEdges(Placement map, float x, float y, float viewportWidth,
                        float viewportHeight) {
    // Each threshold is a float before it is compared.
    const float rightZone = viewportWidth - map.left - EdgeMargin;
    if (x > rightZone && map.left > viewportWidth - map.width) map.left -= EdgeStep;
    const float leftZone = EdgeMargin - map.left;
    if (x < leftZone && map.left < 0) map.left += EdgeStep;
    const float bottomZone = viewportHeight - map.top - EdgeMargin;
    if (y > bottomZone && map.top > viewportHeight - map.height) map.top -= EdgeStep;
    const float topZone = EdgeMargin - map.top;
    if (y < topZone && map.top < 0) map.top += EdgeStep;
    return map;
}

Placement viewFrameFor(float mapLeft, float mapTop, float viewportWidth, float viewportHeight,
                       int tileSize) {
    const auto tile = static_cast<float>(tileSize);
    constexpr float dot = MinimapCellSize;
    return {(-mapLeft / tile) * dot, (-mapTop / tile) * dot, (viewportWidth / tile) * dot,
            (viewportHeight / tile) * dot};
}
