#pragma once

class InkMap;
struct InkedImage;

/// Gives the transparent pixels right beside ink its colour, which stays unseen. Views filter straight alpha: they mix
/// the colours of neighbours, and black ones would show as a dark rim around light ink.
/// canvas: RGBA8888; no alpha changes. touched: the columns where ink may have changed.
void colourRim(InkedImage& canvas, const InkMap& touched);
