#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>
#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// What the host is doing with scene files, and file operations.
class MFileIO {
public:
    /// Opening, importing or referencing.
    static bool isReadingFile();
    static bool isOpeningFile();
    static bool isImportingFile();
    static bool isReferencingFile();
    static bool isNewingFile();
    static bool isWritingFile();

    /// Full path of the scene; its untitled name when it was never saved.
    static MString currentFile();
    // Without force a changed scene makes these fail.
    static MStatus newFile(bool force = false);
    static MStatus open(const MString& fileName, const char* type = NULL, bool force = false);
    /// Adds a file's nodes to the scene; nameSpace: the one they go under, null or empty for none. References in the
    /// file stay references whatever preserveReferences says.
    static MStatus importFile(const MString& fileName, const char* type = NULL, bool preserveReferences = false,
                              const char* nameSpace = NULL, bool ignoreVersion = false);
    /// nameSpace: empty for one made from the file's name. deferReference: the file is not read yet.
    static MStatus reference(const MString& fileName, bool deferReference = false, bool lockReference = false,
                             const MString& nameSpace = "");
    static MStatus save(bool force = false);
    static MStatus saveAs(const MString& fileName, const char* type = NULL, bool force = false);
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
