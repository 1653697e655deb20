#pragma once

#include <QString>

/// The name without what the text record cannot hold: control characters are left out, double quotes and back-slashes
/// become ' and /.
QString recordableName(const QString& name);
