// All of the geometry.
#pragma once

#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeScale3d.h"
#include "Ge/GeTol.h"
#include "Ge/GeUtil.h"
#include "Ge/GeVector2d.h"
#include "Ge/GeVector3d.h"
