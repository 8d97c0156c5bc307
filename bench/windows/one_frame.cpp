#include "bench/windows/one_frame.h"

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "bench/windows/copying.h"
#include "bench/windows/person.h"
#include "bench/windows/stopwatch.h"
#include "tests/support/window_test.h"

namespace kvez::bench {
namespace {

constexpr double kFrameMilliseconds = 16.7;  // sixty pictures a second
constexpr int kRounds = 21;

// Something that a person does. Each gives back whether what it needs was there.
struct Action {
  std::string name;
  std::function<void()> prepare;  // up to the moment before
  std::function<void()> act;      // the key or the click
  std::function<bool()> isAnswered;
};

std::string Utf8(std::wstring_view text) {
  const auto length = static_cast<int>(text.size());
  std::string bytes(text.size() * 3, '\0');
  bytes.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(),
                                                            static_cast<int>(bytes.size()), nullptr, nullptr)));
  return bytes;
}

class Frames {
 public:
  Frames(frmhlavni& window, clspsc& database, Limits& limits)
      : m_window(window), m_database(database), m_limits(limits) {}

  void MeasureModes();
  void MeasureSearches();
  void MeasureRows();
  void MeasureRowsUnderThePointer();
  void MeasureButtons();
  void MeasureAboutPanel();
  void MeasureCopying();

 private:
  void Measure(const Action& action);
  void Search(const std::wstring& text);
  void ChooseMode(SearchMode mode);
  void PrepareSelecting(std::size_t list);
  bool Found() const { return m_window.lstMPSC[kListResult].ListCount() > 0; }

  frmhlavni& m_window;
  clspsc& m_database;
  Limits& m_limits;
};

// What stood there before decides what has to be taken away and what comes anew, scroll bars above all: the action is
// measured after a search that found nothing and after one that found the longest list, and the slower one counts. Of
// each the median counts: the frame is promised to whoever sits there, and not to the luckiest round.
void Frames::Measure(const Action& action) {
  double slower = 0;
  for (const wchar_t* former : {L"Nikde", L"*a*"}) {
    std::vector<double> seconds;
    for (int round = 0; round < kRounds; ++round) {
      Search(former);
      if (action.prepare) action.prepare();
      Settle(m_window);
      seconds.push_back(Seconds([&] {
        action.act();
        Settle(m_window);
      }));
      if (!action.isAnswered()) return m_limits.Fail(action.name + ": there was no answer");
    }
    slower = std::max(slower, Median(seconds));
  }
  m_limits.AtMost(action.name, slower * 1e3, kFrameMilliseconds, "ms");
}

void Frames::ChooseMode(SearchMode mode) {
  // A mode that is chosen already raises no click.
  m_window.optMPSC[mode].SetValue(false);
  m_window.optMPSC[mode].SetValue(true);
}

void Frames::Search(const std::wstring& text) {
  ChooseMode(kModeName);
  m_window.txtMPSC[0].SetText(text);
  m_window.VyhledejSeznam();
  Settle(m_window);
}

void Frames::MeasureModes() {
  struct Mode {
    SearchMode mode;
    const char* name;
    WORD key;
  };
  for (const auto& [mode, name, key] :
       {Mode{kModePostal, "PSČ", 'P'}, Mode{kModeName, "Obec", 'M'}, Mode{kModeDistrict, "Okres", 'O'}}) {
    const HWND option = m_window.optMPSC[mode].Handle();
    const auto chooseAnother = [this, other = mode == kModeDistrict ? kModeName : kModeDistrict, option] {
      ChooseMode(other);
      PointAt(option);
    };
    const auto isChosen = [this, mode = mode] { return m_window.optMPSC[mode].Value(); };
    Measure({std::string("mode ") + name + ", a click", chooseAnother, [option] { Click(option); }, isChosen});
    Measure({std::string("mode ") + name + ", its key", chooseAnother,
             [this, key = key] {
               const HeldControl control;
               Press(GetFocus(), key);
               Settle(m_window);
             },
             isChosen});
  }
}

void Frames::MeasureSearches() {
  const auto type = [this](SearchMode mode, std::size_t box, const wchar_t* text) {
    return [this, mode, box, text] {
      ChooseMode(mode);
      m_window.txtMPSC[box].SetFocus();
      m_window.txtMPSC[box].SetText(text);
    };
  };
  const auto enter = [] { Press(GetFocus(), VK_RETURN); };
  const auto isFound = [this] { return Found(); };
  Measure({"a letter typed", type(kModeName, 0, L""), [] { Type(GetFocus(), L'P'); },
           [this] { return m_window.txtMPSC[0].Text() == L"P"; }});
  Measure({"search for the PSČ 602 00", type(kModePostal, 0, L"602 00"), enter, isFound});
  for (const wchar_t* beginning : {L"6", L"691"}) {
    Measure({"search for the PSČ that begin with " + Utf8(beginning), type(kModePostal, 1, beginning), enter, isFound});
  }
  for (const wchar_t* name :
       {L"Lhota", L"Praha*", L"Lednic?", L"*hov", L"?ves", L"*mlýn*", L"?nov?", L"Nov*Ves", L"Nov?Ves", L"*a*"}) {
    Measure({"search for the name " + Utf8(name), type(kModeName, 0, name), enter, isFound});
  }
  Measure({"search for a name that nobody has", type(kModeName, 0, L"Nikdekdesi"), enter, [this] { return !Found(); }});
  Measure({"name that begins with Žel, in the light-blue field", type(kModeName, 1, L"Žel"), enter,
           [this] { return m_window.lstMPSC[kListAll].ListIndex() > 0; }});
}

void Frames::PrepareSelecting(std::size_t list) {
  if (list == kListResult && !Found()) Search(L"Lhota");
  ChooseMode(list == kListDistricts ? kModeDistrict : kModeName);
}

void Frames::MeasureRows() {
  struct Rows {
    List list;
    const char* of;
  };
  static constexpr POINT kPlace = {40, 60};
  for (const auto& [list, of] :
       {Rows{kListAll, "all municipalities"}, Rows{kListResult, "the result"}, Rows{kListDistricts, "the districts"}}) {
    forms::ListBox& box = m_window.lstMPSC[list];
    const auto isSelected = [&box] { return box.ListIndex() > 0; };
    Measure({std::string("a row of ") + of + ", a click",
             [this, list = list, &box] {
               PrepareSelecting(list);
               PointAt(box.Handle(), kPlace);
             },
             [&box] { Click(box.Handle(), kPlace); }, isSelected});
    const auto selectFirst = [this, list = list, &box] {
      PrepareSelecting(list);
      box.SetFocus();
      box.SetListIndex(0);
    };
    Measure({std::string("the next row of ") + of, selectFirst, [] { Press(GetFocus(), VK_DOWN); }, isSelected});
    Measure({std::string("the next page of ") + of, selectFirst, [] { Press(GetFocus(), VK_NEXT); }, isSelected});
  }
}

// With the setting that lets the selection follow the pointer.
void Frames::MeasureRowsUnderThePointer() {
  constexpr std::int16_t kSelectUnderPointer = 0;
  const std::int16_t before = m_database.vGetNastaveniRegistr(kSelectUnderPointer);
  m_database.vSetNastaveniRegistr(kSelectUnderPointer, 1);
  forms::ListBox& box = m_window.lstMPSC[kListResult];
  Measure({"the row under the pointer",
           [this, &box] {
             PrepareSelecting(kListResult);
             box.SetListIndex(0);
           },
           [&box] {
             PointAt(box.Handle(), {40, 60});
           },
           [&box] { return box.ListIndex() > 0; }});
  m_database.vSetNastaveniRegistr(kSelectUnderPointer, before);
}

void Frames::MeasureButtons() {
  const HWND search = m_window.tlHVyhledej.Handle();
  const HWND help = m_window.tlHNapoveda.Handle();
  const HWND samePostalCode = m_window.tlHObcePSC.Handle();
  Measure({"the pointer comes to a button", [help] { PointAt(help); }, [search] { PointAt(search); },
           [search] { return GetCapture() == search; }});
  Measure({"search for the municipalities of a district",
           [this, search] {
             ChooseMode(kModeDistrict);
             m_window.lstMPSC[kListDistricts].SetListIndex(3);
             PointAt(search);
           },
           [search] { Click(search); }, [this] { return Found(); }});
  Measure({"Obce k PSČ",
           [this, samePostalCode] {
             Search(L"Brno*");
             m_window.lstMPSC[kListResult].SetListIndex(1);
             PointAt(samePostalCode);
           },
           [samePostalCode] { Click(samePostalCode); }, [this] { return Found() && !m_window.tlHObcePSC.Visible(); }});
}

void Frames::MeasureAboutPanel() {
  const HWND open = m_window.tlHOaplikaci.Handle();
  const auto isOpen = [this] { return m_window.fraMPSCO.Visible(); };
  const auto show = [this, isOpen] {
    if (!isOpen()) Click(m_window.tlHOaplikaci.Handle());
    Settle(m_window);
    PointAt(m_window.tlHStorno.Handle());
  };
  const auto hide = [this, isOpen, open] {
    if (isOpen()) Click(m_window.tlHStorno.Handle());
    Settle(m_window);
    PointAt(open);
  };
  Measure({"About panel opened", hide, [open] { Click(open); }, isOpen});
  Measure({"About panel closed", show, [this] { Click(m_window.tlHStorno.Handle()); }, [isOpen] { return !isOpen(); }});
}

void Frames::MeasureCopying() {
  std::vector<double> seconds;
  for (int round = 0; round < kRounds; ++round) {
    Search(L"*a*");
    const auto copied = CopyList(m_window);
    if (!copied) return m_limits.Fail("the list did not come to the clipboard");
    seconds.push_back(*copied);
  }
  m_limits.AtMost("the list of *a* to the clipboard", Median(seconds) * 1e3, kFrameMilliseconds, "ms");
}

}  // namespace

void MeasureOneFrame(frmhlavni& window, clspsc& database, Limits& limits) {
  std::printf("one frame: from the key or the click to the painted answer\n");
  if (!test::ShowActive(window)) return limits.Fail("the window does not come to the front");
  Frames frames(window, database, limits);
  frames.MeasureModes();
  frames.MeasureSearches();
  frames.MeasureRows();
  frames.MeasureRowsUnderThePointer();
  frames.MeasureButtons();
  frames.MeasureAboutPanel();
  frames.MeasureCopying();
}

}  // namespace kvez::bench
