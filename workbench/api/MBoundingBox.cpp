#include <maya/MBoundingBox.h>

#include <maya/MMatrix.h>

#include <algorithm>

OPENMAYA_MAJOR_NAMESPACE_OPEN

MBoundingBox::MBoundingBox(const MPoint& corner1, const MPoint& corner2)
{
    expand(corner1);
    expand(corner2);
}

void MBoundingBox::clear()
{
    *this = MBoundingBox();
}

void MBoundingBox::expand(const MPoint& point)
{
    for (unsigned axis = 0; axis < 3; ++axis) {
        m_min[axis] = m_isEmpty ? point[axis] : std::min(m_min[axis], point[axis]);
        m_max[axis] = m_isEmpty ? point[axis] : std::max(m_max[axis], point[axis]);
    }
    m_isEmpty = false;
}

void MBoundingBox::expand(const MBoundingBox& box)
{
    if (box.m_isEmpty)
        return;
    expand(box.m_min);
    expand(box.m_max);
}

void MBoundingBox::transformUsing(const MMatrix& matrix)
{
    if (m_isEmpty)
        return;
    MBoundingBox out;
    for (int corner = 0; corner < 8; ++corner) {
        const MPoint point(corner & 1 ? m_max.x : m_min.x, corner & 2 ? m_max.y : m_min.y,
                           corner & 4 ? m_max.z : m_min.z);
        out.expand(point * matrix);
    }
    *this = out;
}

bool MBoundingBox::contains(const MPoint& point) const
{
    if (m_isEmpty)
        return false;
    for (unsigned axis = 0; axis < 3; ++axis) {
        if (point[axis] < m_min[axis] || point[axis] > m_max[axis])
            return false;
    }
    return true;
}

bool MBoundingBox::intersects(const MBoundingBox& box, double tolerance) const
{
    if (m_isEmpty || box.m_isEmpty)
        return false;
    for (unsigned axis = 0; axis < 3; ++axis) {
        if (m_min[axis] - tolerance > box.m_max[axis] || box.m_min[axis] - tolerance > m_max[axis])
            return false;
    }
    return true;
}

double MBoundingBox::width() const
{
    return m_max.x - m_min.x;
}

double MBoundingBox::height() const
{
    return m_max.y - m_min.y;
}

double MBoundingBox::depth() const
{
    return m_max.z - m_min.z;
}

MPoint MBoundingBox::center() const
{
    return MPoint((m_min.x + m_max.x) / 2, (m_min.y + m_max.y) / 2, (m_min.z + m_max.z) / 2);
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
