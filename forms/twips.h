#pragma once

namespace kvez {

/// Sizes and positions on forms are in twips, 1440 to the inch: 15 to the pixel at 96 dots per inch.
int TwipsToPixels(int twips, unsigned dpi);
int PixelsToTwips(int pixels, unsigned dpi);

}  // namespace kvez
