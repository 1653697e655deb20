#pragma once

#include <maya/MApiNamespace.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// What a draw override computes before drawing and reads while drawing. The host owns it: with deleteAfterUse it goes
/// after each draw, otherwise it is handed back in the next frame and goes with the drawn object.
class MUserData {
public:
    MUserData(bool deleteAfterUse);
    virtual ~MUserData();

    bool deleteAfterUse() const;
    void setDeleteAfterUse(bool deleteAfterUse);

private:
    MUserData(const MUserData&) = delete;
    MUserData& operator=(const MUserData&) = delete;

    bool m_deleteAfterUse;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
