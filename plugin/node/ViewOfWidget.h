#pragma once

#include <maya/M3dView.h>

class QWidget;

/// The view that draws in a widget. False, and the view as it was, for a widget of no view, and for null.
bool findView(const QWidget* widget, M3dView& view);
