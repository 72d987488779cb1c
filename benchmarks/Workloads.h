#pragma once

#include <span>
#include <vector>

#include "benchmarks/Measure.h"

namespace kvbench {

class Drawing;

/// Each adds its figures. They throw when a call fails or the floor is not the same as the row's work.
void MeasureReads(Drawing& drawing, std::span<const int> sizes, std::vector<Figure>& figures);
void MeasureWrites(Drawing& drawing, std::span<const int> sizes, std::vector<Figure>& figures);
void MeasureCreation(std::vector<Figure>& figures);
void MeasureLists(std::span<const int> sizes, std::vector<Figure>& figures);
/// Opens the list of layers of drawings with that many, and moves over its entries.
void MeasureLayers(std::span<const int> sizes, std::vector<Figure>& figures);
/// A palette of rows of all classes, made and ended.
void MeasurePalette(std::vector<Figure>& figures);
/// What a control of each class takes that is not edited: made, and shown in a palette.
void MeasureIdleMemory(std::vector<Footprint>& footprints);
void MeasurePainting(Drawing& drawing, std::vector<Figure>& figures);

}  // namespace kvbench
