#pragma once

namespace kvez::forms {

class Control;

/// True when the user can get at the control now: it is seen, it and all around it, the form included, is enabled, and
/// nothing lies over it, not even in part. While the form has an open front panel, only what lies in the panel can be
/// reached. The Tab key, access keys, what a screen reader triggers, and the selection that follows the pointer all ask
/// here.
///
/// A control that is about to go (`leaving`, null for none) counts as gone, with all that lies in it.
bool CanBeReached(const Control& control, const Control* leaving = nullptr);

}  // namespace kvez::forms
