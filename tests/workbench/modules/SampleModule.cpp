#include <maya/MArgList.h>
#include <maya/MEventMessage.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MFnNumericAttribute.h>
#include <maya/MFnPlugin.h>
#include <maya/MFnTypedAttribute.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>
#include <maya/MPxLocatorNode.h>

#include <istream>
#include <ostream>
#include <string>

// A module for the loader's tests. Option variables make it misbehave:
//   sampleModuleFails      initializePlugin fails after it registered everything
//   sampleModuleForgets    uninitializePlugin takes nothing back
//   sampleModuleRefuses    uninitializePlugin fails

namespace {

const MTypeId kDataId(0x7101);
const MTypeId kNodeId(0x7102);
MCallbackId s_callback = 0;
int s_counted = 0;

bool isWanted(const char* optionVariable)
{
    return MGlobal::optionVarIntValue(optionVariable) != 0;
}

class Note : public MPxData {
public:
    static void* create() { return new Note; }
    MStatus readASCII(const MArgList& args, unsigned int& next) override
    {
        MStatus status;
        m_text = args.asString(next++, &status);
        return status;
    }
    MStatus writeASCII(std::ostream& out) override
    {
        out << '"' << m_text << '"';
        return MStatus::kSuccess;
    }
    MStatus readBinary(std::istream& in, unsigned int length) override
    {
        std::string text(length, '\0');
        in.read(&text[0], static_cast<std::streamsize>(length));
        m_text = text.c_str();
        return in.fail() ? MStatus::kFailure : MStatus::kSuccess;
    }
    MStatus writeBinary(std::ostream& out) override
    {
        out << m_text;
        return MStatus::kSuccess;
    }
    void copy(const MPxData& src) override
    {
        if (const auto* other = dynamic_cast<const Note*>(&src))
            m_text = other->m_text;
    }
    MTypeId typeId() const override { return kDataId; }
    MString name() const override { return "sampleModuleNote"; }
    void setText(const MString& text) { m_text = text; }

private:
    MString m_text;
};

class Pin : public MPxLocatorNode {
public:
    static void* create() { return new Pin; }
    static MStatus initialize()
    {
        MFnTypedAttribute typed;
        const MObject note = typed.create("note", "nt", kDataId);
        MFnNumericAttribute number;
        const MObject depth = number.create("depth", "dp", MFnNumericData::kDouble, 1.5);
        return addAttribute(note) && addAttribute(depth) ? MS::kSuccess : MS::kFailure;
    }
    void postConstructor() override
    {
        auto* note = new Note;
        note->setText("fresh");
        MPlug plug(thisMObject(), MFnDependencyNode(thisMObject()).attribute("note"));
        plug.setMPxData(note);
    }
};

/// Counts its runs; undoable.
class Count : public MPxCommand {
public:
    static void* create() { return new Count; }
    MStatus doIt(const MArgList&) override { return redoIt(); }
    MStatus redoIt() override
    {
        setResult(++s_counted);
        return MS::kSuccess;
    }
    MStatus undoIt() override
    {
        --s_counted;
        return MS::kSuccess;
    }
    bool isUndoable() const override { return true; }
};

void onSelectionChanged(void*)
{
    MGlobal::displayInfo("selection changed");
}

}  // namespace

__attribute__((visibility("default"))) MStatus initializePlugin(MObject obj)
{
    MFnPlugin plugin(obj, "Sampler", "3.1");
    s_callback = MEventMessage::addEventCallback("SelectionChanged", onSelectionChanged);
    const bool done =
        plugin.registerCommand("sampleModuleCount", Count::create)
        && plugin.registerData("sampleModuleNote", kDataId, Note::create)
        && plugin.registerNode("sampleModulePin", kNodeId, Pin::create, Pin::initialize, MPxNode::kLocatorNode);
    return done && !isWanted("sampleModuleFails") ? MS::kSuccess : MS::kFailure;
}

__attribute__((visibility("default"))) MStatus uninitializePlugin(MObject obj)
{
    if (isWanted("sampleModuleRefuses"))
        return MS::kFailure;
    if (isWanted("sampleModuleForgets"))
        return MS::kSuccess;
    MFnPlugin plugin(obj);
    MMessage::removeCallback(s_callback);
    const bool done = plugin.deregisterNode(kNodeId) && plugin.deregisterData(kDataId)
                   && plugin.deregisterCommand("sampleModuleCount");
    return done ? MS::kSuccess : MS::kFailure;
}
