#pragma once

#include <maya/MPoint.h>
#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// An axis-aligned box. The default one is empty; two equal corners give a box of no size at that place.
class MBoundingBox {
public:
    MBoundingBox() = default;
    MBoundingBox(const MPoint& corner1, const MPoint& corner2);

    void clear();
    void expand(const MPoint& point);
    void expand(const MBoundingBox& box);
    void transformUsing(const MMatrix& matrix);
    bool contains(const MPoint& point) const;
    bool intersects(const MBoundingBox& box, double tolerance = 0.0) const;
    double width() const;   ///< along x
    double height() const;  ///< along y
    double depth() const;   ///< along z
    MPoint center() const;
    MPoint min() const { return m_min; }
    MPoint max() const { return m_max; }

private:
    bool m_isEmpty = true;
    MPoint m_min;
    MPoint m_max;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
