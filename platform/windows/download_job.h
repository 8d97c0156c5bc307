#pragma once

#include <windows.h>
// Stays below windows.h.
#include <urlmon.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <utility>

namespace kvez {

/// One call of the system's URL library and what it tells of itself. The thread that makes the call and the one that
/// waits for it hold it together; either may be the last.
class DownloadJob final : public IBindStatusCallback {
 public:
  /// The call; comes back when the download is over.
  using Call = std::function<HRESULT(IBindStatusCallback* status)>;

  explicit DownloadJob(Call call) : m_call(std::move(call)) { InitializeCriticalSection(&m_lock); }
  DownloadJob(const DownloadJob&) = delete;
  DownloadJob& operator=(const DownloadJob&) = delete;

  void Run();

  std::uint64_t Bytes() const { return m_bytes; }
  std::uint64_t Total() const { return m_total; }  // 0 when nobody knows
  std::int32_t Result() const { return m_result; }

  /// Ends it with the next byte that comes.
  void End() { m_ends = true; }
  /// Ends it although no byte comes.
  void Abort();

  // IUnknown
  STDMETHODIMP QueryInterface(REFIID id, void** object) override;
  STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
  STDMETHODIMP_(ULONG) Release() override;

  // IBindStatusCallback
  STDMETHODIMP OnStartBinding(DWORD reserved, IBinding* binding) override;
  STDMETHODIMP GetPriority(LONG* priority) override;
  STDMETHODIMP OnLowResource(DWORD reserved) override;
  STDMETHODIMP OnProgress(ULONG bytes, ULONG total, ULONG code, LPCWSTR text) override;
  STDMETHODIMP OnStopBinding(HRESULT result, LPCWSTR error) override;
  STDMETHODIMP GetBindInfo(DWORD* flags, BINDINFO* info) override;
  STDMETHODIMP OnDataAvailable(DWORD flags, DWORD size, FORMATETC* format, STGMEDIUM* medium) override;
  STDMETHODIMP OnObjectAvailable(REFIID id, IUnknown* object) override;

 private:
  ~DownloadJob() { DeleteCriticalSection(&m_lock); }

  void SetBinding(IBinding* binding);

  Call m_call;
  std::atomic<ULONG> m_references = 1;
  std::atomic<std::uint64_t> m_bytes = 0;
  std::atomic<std::uint64_t> m_total = 0;
  std::atomic<bool> m_ends = false;
  std::atomic<std::int32_t> m_result = E_FAIL;
  CRITICAL_SECTION m_lock{};      // of the binding, which the one thread drops while the other may abort it
  IBinding* m_binding = nullptr;  // while it goes on
};

}  // namespace kvez
