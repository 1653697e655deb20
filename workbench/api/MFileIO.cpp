#include <maya/MFileIO.h>

#include "api/Handles.h"
#include "kernel/References.h"
#include "kernel/SceneFile.h"
#include "kernel/SceneImport.h"
#include "kernel/Session.h"

#include <functional>
#include <optional>

using kernel::FileActivity;

namespace {

kernel::Session& session()
{
    return kernel::Session::current();
}

bool isDoing(FileActivity activity)
{
    return session().scene.isDoing(activity);
}

/// Runs a file operation; what it throws is reported.
MStatus attempt(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const kernel::CommandError& error) {
        if (*error.what())
            session().output.error(error.what());
        return MStatus::kFailure;
    }
    return MStatus::kSuccess;
}

/// Throws when there is something to lose.
void requireSaved(bool force)
{
    if (!force && session().scene.isModified())
        throw kernel::CommandError("Unsaved changes");
}

/// Null leaves the choice to the host. Throws for a type it does not know.
std::optional<kernel::SceneFileType> fileType(const char* name)
{
    const auto type = name ? kernel::fileTypeNamed(name) : std::nullopt;
    if (name && !type)
        throw kernel::CommandError("Unsupported file type: " + std::string(name));
    return type;
}

}  // namespace

OPENMAYA_MAJOR_NAMESPACE_OPEN

bool MFileIO::isReadingFile()
{
    return isOpeningFile() || isImportingFile() || isReferencingFile();
}

bool MFileIO::isOpeningFile()
{
    return isDoing(FileActivity::Open);
}

bool MFileIO::isImportingFile()
{
    return isDoing(FileActivity::Import);
}

bool MFileIO::isReferencingFile()
{
    return isDoing(FileActivity::Reference);
}

bool MFileIO::isNewingFile()
{
    return isDoing(FileActivity::New);
}

bool MFileIO::isWritingFile()
{
    return isDoing(FileActivity::Write);
}

MString MFileIO::currentFile()
{
    const std::string& name = session().scene.fileName();
    return name.empty() ? MString("untitled") : api::toHost(name);
}

MStatus MFileIO::newFile(bool force)
{
    return attempt([&] {
        requireSaved(force);
        kernel::newScene(session());
    });
}

MStatus MFileIO::open(const MString& fileName, const char* type, bool force)
{
    return attempt([&] {
        fileType(type);  // what the file is, its content says
        requireSaved(force);
        kernel::openScene(session(), api::toKernel(fileName));
    });
}

MStatus MFileIO::importFile(const MString& fileName, const char* type, bool /*preserveReferences*/,
                            const char* nameSpace, bool /*ignoreVersion*/)
{
    return attempt([&] {
        fileType(type);
        kernel::ImportNaming naming;
        naming.nameSpace = nameSpace ? nameSpace : "";
        kernel::importScene(session(), api::toKernel(fileName), naming);
    });
}

MStatus MFileIO::reference(const MString& fileName, bool deferReference, bool /*lockReference*/,
                           const MString& nameSpace)
{
    return attempt([&] {
        kernel::ReferenceRequest request;
        request.file = api::toKernel(fileName);
        request.nameSpace = api::toKernel(nameSpace);
        request.isDeferred = deferReference;
        kernel::createReference(session(), request);
    });
}

MStatus MFileIO::save(bool /*force*/)
{
    const std::string name = session().scene.fileName();
    if (name.empty())
        return MStatus::kFailure;
    return attempt([&] { kernel::saveScene(session(), name); });
}

MStatus MFileIO::saveAs(const MString& fileName, const char* type, bool /*force*/)
{
    return attempt([&] { kernel::saveScene(session(), api::toKernel(fileName), fileType(type)); });
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
