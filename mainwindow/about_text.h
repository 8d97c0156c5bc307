#pragma once

namespace kvez {

/// What the About panel says about the program, its data and its licence.
extern const wchar_t kAboutText[];

}  // namespace kvez
