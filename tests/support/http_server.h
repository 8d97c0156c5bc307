#pragma once

#include <condition_variable>
#include <future>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace kvez::test {

/// What the server answers for one file.
struct HttpAnswer {
  int status = 200;
  std::string body;
  /// So many bytes of the body are sent before the connection is cut off; the header announces all of them.
  std::size_t sent = std::string::npos;
  /// The answer waits for this, when it is given.
  std::shared_future<void> until = {};
};

/// A web server on the loopback address, on a free port that the system picks, for one test.
class HttpServer {
 public:
  HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;
  ~HttpServer();

  /// "http://127.0.0.1:<port>/"
  std::wstring Base() const;

  /// What a request for `name`, the last part of the address, is answered with. All other names get 404.
  void Serve(const std::string& name, HttpAnswer answer);

  /// From now on connections are refused.
  void Stop();

  /// The names asked for so far, in order.
  std::vector<std::string> Requests();

 private:
  void Run();
  void Answer(std::uintptr_t connection);

  std::uintptr_t m_listener = 0;
  unsigned short m_port = 0;
  std::thread m_thread;
  std::mutex m_mutex;
  std::map<std::string, HttpAnswer> m_answers;
  std::vector<std::string> m_requests;
};

}  // namespace kvez::test
