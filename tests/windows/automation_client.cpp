// SPDX-License-Identifier: MIT
//
// automation_client VELLUMARK.DLL [DLL64 DLL32]: checks the automation server as a client without a
// script host, under Windows or Wine; the DLL need not be registered. Of the other two DLLs it
// looks at the type libraries, which programs of either bitness can read. Prints a line for each
// fact and "all facts hold" at the end; otherwise exits with 1.
#include <atomic>
#include <cstdio>
#include <thread>
#include <windows.h>
#include <ocidl.h>

#include "automation/server/windows_text.h"
#include "tests/windows/automation_object.h"
#include "tests/windows/facts.h"

namespace vellumark::tests {
namespace {

/// Closes the notices in place of the user, and counts them.
class NoticeCloser {
 public:
  [[nodiscard]] int Closed() const noexcept { return closed_; }

  /// How many of them said what they should.
  [[nodiscard]] int Worded() const noexcept { return worded_; }

 private:
  void Watch(const std::stop_token& stop) {
    for (; !stop.stop_requested(); Sleep(20)) {
      const HWND notice = FindWindowA(nullptr, "Vellumark");
      if (notice == nullptr) continue;
      ++closed_;
      Sleep(100);  // a box that has just appeared may still lack its text
      if (FindWindowExA(notice, nullptr, "Static", "Initialize()") != nullptr) ++worded_;
      for (; IsWindow(notice); Sleep(20)) PostMessageA(notice, WM_COMMAND, IDOK, 0);
    }
  }

  std::atomic<int> closed_ = 0;
  std::atomic<int> worded_ = 0;
  std::jthread watcher_{[this](const std::stop_token& stop) { Watch(stop); }};
};

class Server {
 public:
  explicit Server(const char* file) : module_(LoadLibraryA(file)) {
    get_class_ = Find<decltype(get_class_)>("DllGetClassObject");
    can_unload_ = Find<decltype(can_unload_)>("DllCanUnloadNow");
  }
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  [[nodiscard]] bool IsLoaded() const noexcept {
    return get_class_ != nullptr && can_unload_ != nullptr;
  }

  HRESULT GetClass(REFCLSID id, REFIID riid, void** object) const {
    return get_class_(id, riid, object);
  }
  [[nodiscard]] HRESULT CanUnload() const { return can_unload_(); }
  bool Unload() { return FreeLibrary(module_) != 0; }

 private:
  template <class F>
  F Find(const char* name) const {
    return reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
  }

  HMODULE module_;
  HRESULT(WINAPI* get_class_)(REFCLSID, REFIID, void**) = nullptr;
  HRESULT(WINAPI* can_unload_)() = nullptr;
};

void CheckFactory(Facts& facts, const Server& server, IClassFactory* factory) {
  ComPointer<IUnknown> object, site;
  facts.Check("there is no class of another identifier",
              server.GetClass(IID_IUnknown, IID_IClassFactory, object.ReceiveAny()) ==
                  CLASS_E_CLASSNOTAVAILABLE);
  facts.Check("a factory is nothing but a factory",
              factory->QueryInterface(IID_IDispatch, site.ReceiveAny()) == E_NOINTERFACE &&
                  site.Get() == nullptr);
  facts.Check(
      "no aggregation, and no notice for it",
      factory->CreateInstance(factory, IID_IUnknown, object.ReceiveAny()) == CLASS_E_NOAGGREGATION);
}

void CheckIdentity(Facts& facts, IDispatch* object, const automation::ClassInfo& info) {
  ComPointer<IUnknown> unknown, own, again, none;
  ComPointer<IProvideClassInfo> provider;
  object->QueryInterface(IID_IUnknown, unknown.ReceiveAny());
  object->QueryInterface(automation::server::ToGuid(info.interface_id), own.ReceiveAny());
  object->QueryInterface(IID_IProvideClassInfo, provider.ReceiveAny());
  if (provider.Get() != nullptr) provider->QueryInterface(IID_IUnknown, again.ReceiveAny());
  facts.Check("an object is one, whichever interface is asked",
              unknown.Get() != nullptr && unknown.Get() == again.Get() &&
                  own.Get() == static_cast<IUnknown*>(object));
  facts.Check("hosts find no site in it",
              object->QueryInterface(IID_IObjectWithSite, none.ReceiveAny()) == E_NOINTERFACE &&
                  none.Get() == nullptr);
  const ULONG more = object->AddRef();
  facts.Check("references are counted", more == 6 && object->Release() == 5, std::to_string(more));
}

void CheckMembers(Facts& facts, IDispatch* object, const automation::ClassInfo& info) {
  if (!info.members) {
    facts.Check("Enumerations has no members", IdOf(object, L"Create") == DISPID_UNKNOWN &&
                                                   Get(object, 1).result == DISP_E_MEMBERNOTFOUND);
    return;
  }
  CheckRunTimeErrors(facts, object);
  if (info.members == automation::Class::PS) return;  // dispatch is the same
  CheckArguments(facts, object);
  CheckOutArguments(facts, object);
  CheckRefusals(facts, object);
}

void CheckClass(Facts& facts, const Server& server, const automation::ClassInfo& info) {
  std::printf("-- %s\n", std::string(info.name).c_str());
  ComPointer<IClassFactory> factory;
  ComPointer<IDispatch> object;
  const GUID id = automation::server::ToGuid(info.class_id);
  if (FAILED(server.GetClass(id, IID_IClassFactory, factory.ReceiveAny()))) {
    facts.Check("there is a factory", false);
    return;
  }
  CheckFactory(facts, server, factory.Get());
  const HRESULT made = factory->CreateInstance(nullptr, IID_IDispatch, object.ReceiveAny());
  facts.Check("an object is made", made == S_OK, Hexadecimal(made));
  factory.Reset();
  if (made != S_OK) return;
  facts.Check("which keeps the server loaded", server.CanUnload() == S_FALSE);
  CheckIdentity(facts, object.Get(), info);
  CheckTypes(facts, object.Get(), info);
  CheckMembers(facts, object.Get(), info);
  object.Reset();
  facts.Check("the server may go with the object", server.CanUnload() == S_OK);
}

void CheckLock(Facts& facts, const Server& server) {
  const GUID id = automation::server::ToGuid(automation::Classes().front().class_id);
  ComPointer<IClassFactory> factory;
  server.GetClass(id, IID_IClassFactory, factory.ReceiveAny());
  facts.Check("a factory keeps the server loaded", server.CanUnload() == S_FALSE);
  factory->LockServer(TRUE);
  factory->LockServer(TRUE);
  factory->LockServer(FALSE);
  factory.Reset();
  facts.Check("so does a lock that is left", server.CanUnload() == S_FALSE);
  server.GetClass(id, IID_IClassFactory, factory.ReceiveAny());
  factory->LockServer(FALSE);
  factory.Reset();
  facts.Check("and then it may go", server.CanUnload() == S_OK);
}

void CheckServer(Facts& facts, const char* file) {
  Server server(file);
  facts.Check("the DLL is loaded and has its entry points", server.IsLoaded());
  if (!server.IsLoaded()) return;
  {
    const NoticeCloser closer;
    for (const automation::ClassInfo& info : automation::Classes()) {
      CheckClass(facts, server, info);
    }
    CheckLock(facts, server);
    facts.Check("each document showed its notice", closer.Closed() == 2,
                std::to_string(closer.Closed()));
    facts.Check("which says \"Initialize()\"", closer.Worded() == 2,
                std::to_string(closer.Worded()));
  }
  facts.Check("the DLL is unloaded",
              server.Unload() && GetModuleHandleA("vellumark.dll") == nullptr);
}

}  // namespace
}  // namespace vellumark::tests

int main(int argc, char** argv) {
  if (argc != 2 && argc != 4) {
    std::fputs("usage: automation_client VELLUMARK.DLL [DLL64 DLL32]\n", stderr);
    return 2;
  }
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  vellumark::tests::Facts facts;
  vellumark::tests::CheckServer(facts, argv[1]);
  if (argc == 4) {
    using vellumark::automation::server::Wide;
    vellumark::tests::CheckTypeLibrary(facts, Wide(argv[2]).c_str(), SYS_WIN64);
    vellumark::tests::CheckTypeLibrary(facts, Wide(argv[3]).c_str(), SYS_WIN32);
  }
  CoUninitialize();
  if (!facts.AllHold()) return 1;
  std::puts("all facts hold");
  return 0;
}
