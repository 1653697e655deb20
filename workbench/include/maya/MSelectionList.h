#pragma once

#include <maya/MDagPath.h>
#include <maya/MPlug.h>
#include <maya/MStringArray.h>
#include <maya/MUuid.h>

#include <vector>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Nodes, paths and plugs, in order.
class MSelectionList {
public:
    enum MergeStrategy { kMergeNormal, kXORWithList, kRemoveFromList };

    MSelectionList();

    /// Takes names, paths and patterns; fails when nothing matches.
    MStatus add(const MString& nameOrPattern, const bool searchChildNamespacesToo = false);
    MStatus add(const MObject& node, const bool mergeWithExisting = false);
    MStatus add(const MPlug& plug, const bool mergeWithExisting = false);
    /// Nothing here has components: a component that is not null is refused.
    MStatus add(const MDagPath& path, const MObject& component = MObject::kNullObj,
                const bool mergeWithExisting = false);
    MStatus add(const MUuid& uuid, bool mergeWithExisting = false);
    MStatus clear();
    bool isEmpty(MStatus* ReturnStatus = nullptr) const;
    unsigned int length(MStatus* ReturnStatus = nullptr) const;
    MStatus remove(unsigned int index);

    MStatus getDagPath(unsigned int index, MDagPath& path, MObject& component = MObject::kNullObj) const;
    MStatus getDependNode(unsigned int index, MObject& node) const;
    MStatus getPlug(unsigned int index, MPlug& plug) const;
    MStatus getSelectionStrings(MStringArray& strings) const;
    MStatus getSelectionStrings(unsigned int index, MStringArray& strings) const;
    bool hasItem(const MObject& node, MStatus* ReturnStatus = nullptr) const;
    bool hasItem(const MDagPath& path, const MObject& component = MObject::kNullObj,
                 MStatus* ReturnStatus = nullptr) const;
    MStatus merge(const MSelectionList& other, MergeStrategy strategy = kMergeNormal);

private:
    struct Item {
        MObject node;
        MPlug plug;  ///< null for a whole node
    };
    static bool areSame(const Item& a, const Item& b);
    static MString textOf(const Item& item);
    int indexOf(const Item& item) const;  ///< -1 when absent
    MStatus addItem(const Item& item, bool mergeWithExisting);
    std::vector<Item> m_items;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
