// Tolerances for comparing points and vectors.
#pragma once

// Distances, in the units of the coordinates, up to which points and vectors count as equal. The default is 1e-10.
class OdGeTol {
public:
  // The same tolerance for both, or one for each.
  constexpr OdGeTol(double both = 1e-10) : point_(both), vector_(both) {}
  constexpr OdGeTol(double point, double vector) : point_(point), vector_(vector) {}

  // Tolerances for points and for vectors.
  constexpr double equalPoint() const { return point_; }
  constexpr double equalVector() const { return vector_; }
  constexpr void setEqualPoint(double tolerance) { point_ = tolerance; }
  constexpr void setEqualVector(double tolerance) { vector_ = tolerance; }

private:
  double point_;
  double vector_;
};
