#include "forms/twips.h"

#include <windows.h>

namespace kvez {

int TwipsToPixels(int twips, unsigned dpi) { return MulDiv(twips, static_cast<int>(dpi), 1440); }

int PixelsToTwips(int pixels, unsigned dpi) { return MulDiv(pixels, 1440, static_cast<int>(dpi)); }

}  // namespace kvez
