#include "forms/reach.h"

#include "forms/form.h"

namespace kvez::forms {
namespace {

// Pixels: neighbours whose edges are rounded onto each other do not lie on each other.
constexpr int kSharedEdge = 2;

bool IsWithin(HWND window, const Control* container) {
  return container != nullptr && (window == container->Handle() || IsChild(container->Handle(), window) != FALSE);
}

/// Of two windows of a form, neither of which lies in the other: whether `other` is drawn over `window`.
bool LiesInFront(HWND other, HWND window) {
  while (IsChild(GetParent(window), other) == FALSE) window = GetParent(window);
  while (GetParent(other) != GetParent(window)) other = GetParent(other);
  for (HWND front = GetWindow(window, GW_HWNDPREV); front != nullptr; front = GetWindow(front, GW_HWNDPREV)) {
    if (front == other) return true;
  }
  return false;
}

bool IsCovered(const Control& control, const Control* leaving) {
  const HWND window = control.Handle();
  RECT own{};
  GetWindowRect(window, &own);
  InflateRect(&own, -kSharedEdge, -kSharedEdge);
  for (const Control* other : control.OwnerForm().Controls()) {
    const HWND above = other->Handle();
    if (above == nullptr || above == window || !IsWindowVisible(above) || IsWithin(above, leaving)) continue;
    RECT bounds{};
    RECT common{};
    GetWindowRect(above, &bounds);
    if (!IntersectRect(&common, &own, &bounds)) continue;
    if (IsWithin(window, other) || IsWithin(above, &control)) continue;
    if (LiesInFront(above, window)) return true;
  }
  return false;
}

}  // namespace

bool CanBeReached(const Control& control, const Control* leaving) {
  const HWND window = control.Handle();
  if (window == nullptr || !IsWindowVisible(window) || IsWithin(window, leaving)) return false;
  const Form& form = control.OwnerForm();
  for (HWND around = window; around != nullptr; around = around == form.Handle() ? nullptr : GetParent(around)) {
    if (!IsWindowEnabled(around)) return false;
  }
  const Control* const panel = form.FrontPanel();
  const bool panelIsOpen = panel != nullptr && panel != leaving && IsWindowVisible(panel->Handle()) != FALSE;
  if (panelIsOpen && !IsWithin(window, panel)) return false;
  return !IsCovered(control, leaving);
}

}  // namespace kvez::forms
