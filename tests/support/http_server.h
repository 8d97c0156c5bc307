#pragma once

#include <atomic>
#include <cstdint>
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
  const char* type = "application/octet-stream";
  /// Further lines of the header, each with its line end.
  const char* header = "";
  /// Instead of that end: the body comes again and again, without a length announced; or nothing more comes, with the
  /// connection open. Both last until LetGo, or until the other side gives up.
  enum class Then { End, Endless, Stall } then = Then::End;
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

  /// Cuts off an answer that would not come to its end.
  void LetGo() { m_lettingGo = true; }
  /// Begins anew: no answers, no requests, nothing sent, nothing cut off.
  void Forget();
  /// How many bytes of bodies have been taken from it so far.
  std::uint64_t SentBytes() const { return m_sentBytes; }

  /// The names asked for so far, in order.
  std::vector<std::string> Requests();

 private:
  void Run();
  void Answer(std::uintptr_t connection);
  void AnswerWithoutEnd(std::uintptr_t connection, const HttpAnswer& answer);

  std::uintptr_t m_listener = 0;
  unsigned short m_port = 0;
  std::thread m_thread;
  std::mutex m_mutex;
  std::map<std::string, HttpAnswer> m_answers;
  std::vector<std::string> m_requests;
  std::atomic<bool> m_lettingGo = false;
  std::atomic<std::uint64_t> m_sentBytes = 0;
};

}  // namespace kvez::test
