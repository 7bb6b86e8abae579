// How far points and vectors may be apart and still be called equal, in drawing units.
#pragma once

class OdGeTol {
public:
  constexpr OdGeTol(double both = 1e-10) : point_(both), vector_(both) {}
  constexpr OdGeTol(double point, double vector) : point_(point), vector_(vector) {}

  constexpr double equalPoint() const { return point_; }
  constexpr double equalVector() const { return vector_; }
  constexpr void setEqualPoint(double tolerance) { point_ = tolerance; }
  constexpr void setEqualVector(double tolerance) { vector_ = tolerance; }

private:
  double point_;
  double vector_;
};
