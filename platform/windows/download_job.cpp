#include "platform/windows/download_job.h"

namespace kvez {

void DownloadJob::Run() {
  m_result = m_call(this);
  SetBinding(nullptr);
}

void DownloadJob::Abort() {
  EnterCriticalSection(&m_lock);
  if (m_binding != nullptr) m_binding->Abort();
  LeaveCriticalSection(&m_lock);
}

void DownloadJob::SetBinding(IBinding* binding) {
  if (binding != nullptr) binding->AddRef();
  EnterCriticalSection(&m_lock);
  IBinding* const before = std::exchange(m_binding, binding);
  LeaveCriticalSection(&m_lock);
  if (before != nullptr) before->Release();
}

STDMETHODIMP DownloadJob::QueryInterface(REFIID id, void** object) {
  if (object == nullptr) return E_POINTER;
  const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IBindStatusCallback);
  *object = known ? static_cast<IBindStatusCallback*>(this) : nullptr;
  if (!known) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

STDMETHODIMP_(ULONG) DownloadJob::Release() {
  const ULONG left = --m_references;
  if (left == 0) delete this;
  return left;
}

STDMETHODIMP DownloadJob::OnStartBinding(DWORD /*reserved*/, IBinding* binding) {
  SetBinding(binding);
  return m_ends ? E_ABORT : S_OK;
}

STDMETHODIMP DownloadJob::OnProgress(ULONG bytes, ULONG total, ULONG /*code*/, LPCWSTR /*text*/) {
  if (bytes > m_bytes) m_bytes = bytes;
  if (total > 0) m_total = total;
  return m_ends ? E_ABORT : S_OK;
}

STDMETHODIMP DownloadJob::OnStopBinding(HRESULT /*result*/, LPCWSTR /*error*/) { return S_OK; }

// Everything else is left as it is without anybody who listens.
STDMETHODIMP DownloadJob::GetPriority(LONG* /*priority*/) { return E_NOTIMPL; }
STDMETHODIMP DownloadJob::OnLowResource(DWORD /*reserved*/) { return E_NOTIMPL; }
STDMETHODIMP DownloadJob::GetBindInfo(DWORD* /*flags*/, BINDINFO* /*info*/) { return E_NOTIMPL; }
STDMETHODIMP DownloadJob::OnDataAvailable(DWORD /*flags*/, DWORD /*size*/, FORMATETC* /*format*/,
                                          STGMEDIUM* /*medium*/) {
  return E_NOTIMPL;
}
STDMETHODIMP DownloadJob::OnObjectAvailable(REFIID /*id*/, IUnknown* /*object*/) { return E_NOTIMPL; }

}  // namespace kvez
