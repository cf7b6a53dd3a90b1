// The photographic finish of a landscape: grain, texture and vignette.
#pragma once

#include <QImage>

namespace picturegen
{

// Film grain, textures at three scales and a soft vignette, written straight into the scan lines so that
// the picture compresses and looks like a photo; the sky above the horizon gets a gentler texture.
void addTexture(QImage &img, quint32 seed, int horizon);

} // namespace picturegen
