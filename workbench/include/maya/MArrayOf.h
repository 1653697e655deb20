#pragma once

#include <maya/MStatus.h>

#include <vector>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// What all arrays of the API have in common. [] is undefined out of range; insert, remove and set refuse.
template <typename Derived, typename T, typename ConstElement>
class MArrayOf {
public:
    MArrayOf() = default;

    T& operator[](unsigned int index) { return m_items[index]; }
    ConstElement operator[](unsigned int index) const { return m_items[index]; }
    unsigned int length() const { return static_cast<unsigned int>(m_items.size()); }

    MStatus append(const T& item)
    {
        m_items.push_back(item);
        return MStatus::kSuccess;
    }
    MStatus insert(const T& item, unsigned int index)
    {
        if (index > m_items.size())
            return MStatus::kFailure;
        m_items.insert(m_items.begin() + index, item);
        return MStatus::kSuccess;
    }
    MStatus remove(unsigned int index)
    {
        if (index >= m_items.size())
            return MStatus::kFailure;
        m_items.erase(m_items.begin() + index);
        return MStatus::kSuccess;
    }
    MStatus clear()
    {
        m_items.clear();
        return MStatus::kSuccess;
    }
    MStatus set(const T& item, unsigned int index)
    {
        if (index >= m_items.size())
            return MStatus::kFailure;
        m_items[index] = item;
        return MStatus::kSuccess;
    }
    MStatus setLength(unsigned int length)
    {
        m_items.resize(length);
        return MStatus::kSuccess;
    }
    MStatus copy(const Derived& other)
    {
        m_items = other.m_items;
        return MStatus::kSuccess;
    }
    unsigned int sizeIncrement() const { return m_increment; }
    void setSizeIncrement(unsigned int increment) { m_increment = increment; }

    typename std::vector<T>::iterator begin() { return m_items.begin(); }
    typename std::vector<T>::iterator end() { return m_items.end(); }
    typename std::vector<T>::const_iterator begin() const { return m_items.begin(); }
    typename std::vector<T>::const_iterator end() const { return m_items.end(); }
    typename std::vector<T>::const_iterator cbegin() const { return m_items.begin(); }
    typename std::vector<T>::const_iterator cend() const { return m_items.end(); }

protected:
    MArrayOf(unsigned int size, const T& value) : m_items(size, value) {}
    ~MArrayOf() = default;
    MArrayOf(const MArrayOf&) = default;
    MArrayOf& operator=(const MArrayOf&) = default;

    std::vector<T> m_items;

private:
    unsigned int m_increment = 16;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
