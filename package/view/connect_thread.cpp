#include "package/view/connect_thread.h"

#include <exception>
#include <utility>

namespace deployment {
namespace {

constexpr std::string_view ThreadName = "DeployManager Connect Thread";

} // namespace

void TConnectThread::Start(TViewThreads& threads, IOTARemoteProfileServices* services,
                           std::shared_ptr<IOTARemoteProfile> profile,
                           std::shared_ptr<IMainThreadQueue> mainThread, TOnTerminate onTerminate) {
  const auto thread = std::make_shared<TConnectThread>(services, std::move(profile));
  threads.Run([thread, mainThread = std::move(mainThread), onTerminate = std::move(onTerminate)] {
    mainThread->NameThread(ThreadName);
    thread->Execute();
    mainThread->Post([thread, onTerminate] { onTerminate(*thread); });
  });
}

void TConnectThread::Execute() {
  if (!FServices || !FProfile)
    return;
  FMessage.clear();
  try {
    FFailed = !FServices->Connect(*FProfile, FMessage);
  } catch (const std::exception& error) {
    // Nothing above a thread could catch it; the user learns of it as of any failure.
    FMessage = error.what();
  }
}

} // namespace deployment
