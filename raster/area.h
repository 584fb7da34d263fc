#pragma once

#include "raster/contours.h"

namespace kv::raster {

/// Contours to be filled with set or with clear pixels.
struct Area {
    Contours contours;
    FillRule rule;
    bool value;
};

/// Takes areas in the order of painting, each over those before it.
class AreaSink {
  public:
    virtual void Paint(Area area) = 0;

  protected:
    ~AreaSink() = default;
};

}  // namespace kv::raster
