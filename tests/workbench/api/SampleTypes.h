#pragma once

#include "api/Handles.h"
#include "api/Module.h"
#include "kernel/Session.h"

#include <maya/MArgList.h>
#include <maya/MFnDagNode.h>
#include <maya/MFnNumericAttribute.h>
#define MNoVersionString  // this is no module
#include <maya/MFnPlugin.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MPxData.h>
#include <maya/MPxLocatorNode.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

// Types such as a module registers, and a module record to register them for.

/// A list of numbers and a name; counts its living objects.
class SampleData : public MPxData {
public:
    static constexpr unsigned kId = 0x7001;
    static int s_living;
    static void* create() { return new SampleData; }

    SampleData() { ++s_living; }
    ~SampleData() override { --s_living; }

    MStatus readASCII(const MArgList& args, unsigned& next) override
    {
        MStatus status;
        name_ = args.asString(next++, &status);
        const int count = status ? args.asInt(next++, &status) : 0;
        for (int i = 0; i < count && status; ++i)
            numbers.push_back(args.asDouble(next++, &status));
        return status;
    }
    MStatus writeASCII(std::ostream& out) override
    {
        out << '"' << name_ << "\" " << numbers.size();
        for (const double number : numbers)
            out << ' ' << number;
        return MStatus::kSuccess;
    }
    void copy(const MPxData& src) override
    {
        if (const auto* other = dynamic_cast<const SampleData*>(&src)) {
            name_ = other->name_;
            numbers = other->numbers;
        }
    }
    MTypeId typeId() const override { return MTypeId(kId); }
    MString name() const override { return "sampleData"; }

    MString name_;
    std::vector<double> numbers;
};
inline int SampleData::s_living = 0;

class SampleNode : public MPxLocatorNode {
public:
    static constexpr unsigned kId = 0x7002;
    static int s_living;
    static MObject s_data;
    static MObject s_amount;
    static void* create() { return new SampleNode; }

    static MStatus initialize()
    {
        MFnTypedAttribute typed;
        s_data = typed.create("sampleList", "sl", MTypeId(SampleData::kId));
        typed.setHidden(true);
        MFnNumericAttribute number;
        s_amount = number.create("amount", "am", MFnNumericData::kFloat, 1.0);
        number.setKeyable(true);
        number.setMin(0);
        number.setMax(1);
        return addAttribute(s_data) && addAttribute(s_amount) ? MStatus::kSuccess : MStatus::kFailure;
    }

    SampleNode() : hadNodeInConstructor(!thisMObject().isNull()) { ++s_living; }
    ~SampleNode() override { --s_living; }
    void postConstructor() override { nameAtPostConstructor = name(); }

    const bool hadNodeInConstructor;
    MString nameAtPostConstructor;
};
inline int SampleNode::s_living = 0;
inline MObject SampleNode::s_data;
inline MObject SampleNode::s_amount;

/// A session with the two types registered, as if a module of the name "sample" were loaded.
class SampleTypes : public testing::Test {
protected:
    SampleTypes() : module(std::make_shared<api::Module>())
    {
        SampleData::s_living = 0;
        SampleNode::s_living = 0;
        module->name = "sample";
        module->session = &session;
        MFnPlugin plugin = pluginSet();
        EXPECT_TRUE(plugin.registerData("sampleData", MTypeId(SampleData::kId), SampleData::create));
        EXPECT_TRUE(plugin.registerNode("sampleNode", MTypeId(SampleNode::kId), SampleNode::create,
                                        SampleNode::initialize, MPxNode::kLocatorNode));
    }

    MFnPlugin pluginSet()
    {
        MObject object = api::toObject(module);
        return MFnPlugin(object, "Maker", "1.5");
    }
    /// A shape of the sample type below a transform of its own, in the scene.
    MObject createShape(const char* transformName = "sample")
    {
        MFnDagNode set;
        const MObject transform = set.create(MTypeId(SampleNode::kId), transformName);
        return MFnDagNode(transform).child(0);
    }
    static MPlug plugOf(const MObject& node, const char* attribute)
    {
        return MFnDependencyNode(node).findPlug(attribute, false);
    }
    static SampleNode* sampleOf(const MObject& node)
    {
        return dynamic_cast<SampleNode*>(MFnDependencyNode(node).userNode());
    }

    kernel::Session session;
    api::ModulePtr module;
};
