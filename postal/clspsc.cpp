#include "postal/clspsc.h"

#include <utility>

#include "output/list_printing.h"

namespace kvez {

clspsc::clspsc(const Platform& platform, std::wstring programFolder)
    : PostalDatabase(platform, std::move(programFolder)),
      m_formats(platform.formats),
      m_output(platform.output),
      m_handOut(Result(), platform.messages, platform.formats, platform.output) {}

// NOLINTBEGIN(performance-unnecessary-value-param): the headings are copies on purpose.
void clspsc::pExport(std::wstring peh) { m_handOut.Export(peh); }
void clspsc::pClipboard(const std::wstring& pch) { m_handOut.Copy(pch); }
void clspsc::pMail(std::wstring pmt) { m_handOut.Mail(pmt, ProgramFolder()); }
void clspsc::pTisk(std::wstring ptt, ProgressWindow& window) { PrintList(ptt, Result(), window, m_formats, m_output); }
// NOLINTEND(performance-unnecessary-value-param)

}  // namespace kvez
