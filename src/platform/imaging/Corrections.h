#pragma once

#include "Picture.h"

namespace hearthbook {

class WorkPool;

// What puts a dark, faded, noisy or crooked picture right. Each takes a picture and gives a new one
// of its size, but for a turn. With a pool, its free threads help. All throw RunTimeError where
// there is no picture.

/// Stretches each colour so that its darkest and brightest pixels, but for the outermost 1 in
/// 200, reach black and full light: takes away a veil and a tint. A picture of one colour stays.
Picture autoLevels(const Picture& picture, WorkPool* pool = nullptr);

/// Brighter (`step` to 100) or darker (to -100); black and white stay what they are. A step of 10
/// lifts middle grey by 5 in a hundred of full light, and -10 undoes it but for rounding.
Picture withLightness(const Picture& picture, int step, WorkPool* pool = nullptr);

/// Averages each pixel with its neighbours, by a bell of `level` pixels (its standard deviation).
/// `scale` is the size of this picture in relation to the one meant, for a preview. Level 0
/// changes nothing.
Picture softened(const Picture& picture, double level, double scale = 1, WorkPool* pool = nullptr);

/// Makes edges steeper: adds three quarters of what the brightness of a pixel differs from its
/// surroundings, a bell of `level` pixels. Colours stay. Level 0 changes nothing.
Picture sharpened(const Picture& picture, double level, double scale = 1, WorkPool* pool = nullptr);

/// Turned to the left (against the clock) by so many degrees, to the right by negative ones.
/// Right angles move the pixels as they are and may exchange the sides; at any other angle the
/// picture grows to hold all of it, on white paper. Throws RunTimeError if that is over maxPixels.
/// The form's commands turn by right angles alone; any other is there for a print that lies
/// crooked.
Picture rotated(const Picture& picture, double degrees, WorkPool* pool = nullptr);

} // namespace hearthbook
