#include "tests/support/http_server.h"

#include <winsock2.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace kvez::test {
namespace {

void Require(bool fine, const char* what) {
  if (!fine) throw std::runtime_error(std::string("The test's web server: ") + what);
}

bool SendAll(SOCKET connection, const std::string& bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const int sent = send(connection, bytes.data() + done, static_cast<int>(bytes.size() - done), 0);
    if (sent <= 0) return false;
    done += static_cast<std::size_t>(sent);
  }
  return true;
}

/// Not an orderly end, but what a machine that dies leaves behind.
void EndAbruptly(SOCKET connection) {
  const linger abrupt{1, 0};
  setsockopt(connection, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&abrupt), sizeof abrupt);
}

void EndOrderly(SOCKET connection) {
  shutdown(connection, SD_SEND);
  char rest[64];
  while (recv(connection, rest, sizeof rest, 0) > 0) {
  }
}

std::string ReadRequest(SOCKET connection) {
  std::string request;
  char buffer[1024];
  while (request.find("\r\n\r\n") == std::string::npos) {
    const int received = recv(connection, buffer, sizeof buffer, 0);
    if (received <= 0) break;
    request.append(buffer, static_cast<std::size_t>(received));
  }
  return request;
}

/// The last part of the address in "GET /data/vd1.kl_ HTTP/1.1".
std::string NameIn(const std::string& request) {
  const auto start = request.find(' ');
  const auto end = request.find(' ', start + 1);
  if (start == std::string::npos || end == std::string::npos) return {};
  const std::string address = request.substr(start + 1, end - start - 1);
  return address.substr(address.rfind('/') + 1);
}

}  // namespace

HttpServer::HttpServer() {
  WSADATA data{};
  Require(WSAStartup(MAKEWORD(2, 2), &data) == 0, "no sockets");
  const SOCKET listener = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  Require(listener != INVALID_SOCKET, "no socket");
  m_listener = listener;
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  Require(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0, "no port");
  int size = sizeof address;
  Require(getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) == 0, "no port number");
  m_port = ntohs(address.sin_port);
  Require(listen(listener, 8) == 0, "cannot listen");
  m_thread = std::thread([this] { Run(); });
}

HttpServer::~HttpServer() {
  Stop();
  WSACleanup();
}

std::wstring HttpServer::Base() const { return L"http://127.0.0.1:" + std::to_wstring(m_port) + L"/"; }

void HttpServer::Serve(const std::string& name, HttpAnswer answer) {
  const std::lock_guard lock(m_mutex);
  m_answers[name] = std::move(answer);
}

void HttpServer::Forget() {
  const std::lock_guard lock(m_mutex);
  m_answers.clear();
  m_requests.clear();
  m_sentBytes = 0;
  m_lettingGo = false;
}

void HttpServer::Stop() {
  if (!m_thread.joinable()) return;
  LetGo();
  closesocket(m_listener);  // ends the accepting
  m_thread.join();
}

std::vector<std::string> HttpServer::Requests() {
  const std::lock_guard lock(m_mutex);
  return m_requests;
}

void HttpServer::Run() {
  for (;;) {
    const SOCKET connection = accept(m_listener, nullptr, nullptr);
    if (connection == INVALID_SOCKET) return;
    Answer(connection);
    closesocket(connection);
  }
}

void HttpServer::Answer(std::uintptr_t connection) {
  const std::string name = NameIn(ReadRequest(connection));
  HttpAnswer answer{404, "<html><body>Not Found</body></html>"};
  {
    const std::lock_guard lock(m_mutex);
    m_requests.push_back(name);
    if (const auto found = m_answers.find(name); found != m_answers.end()) answer = found->second;
  }
  if (answer.until.valid()) answer.until.wait_for(std::chrono::seconds(60));
  const std::string head = "HTTP/1.1 " + std::to_string(answer.status) + " Answer\r\nContent-Type: " + answer.type +
                           "\r\nConnection: close\r\n" + answer.header;
  if (answer.then == HttpAnswer::Then::Endless) {
    if (SendAll(connection, head + "\r\n")) AnswerWithoutEnd(connection, answer);
    EndOrderly(connection);
    return;
  }
  const std::string body = answer.body.substr(0, answer.sent);
  SendAll(connection, head + "Content-Length: " + std::to_string(answer.body.size()) + "\r\n\r\n" + body);
  m_sentBytes += body.size();
  if (answer.then == HttpAnswer::Then::Stall) {
    AnswerWithoutEnd(connection, answer);
    // A connection that is cut off while the other side waits is never noticed by Wine.
    EndOrderly(connection);
  } else if (answer.sent < answer.body.size()) {
    EndAbruptly(connection);
  } else {
    EndOrderly(connection);
  }
}

void HttpServer::AnswerWithoutEnd(std::uintptr_t connection, const HttpAnswer& answer) {
  const bool stalls = answer.then == HttpAnswer::Then::Stall;
  while (!m_lettingGo) {
    if (!stalls) {
      if (!SendAll(connection, answer.body)) return;
      m_sentBytes += answer.body.size();
      // No network is as quick as a machine is to itself: Wine, which reads as long as there is something to read,
      // would never look up.
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      continue;
    }
    // Has the other side gone?
    fd_set waiting{};
    FD_SET(connection, &waiting);
    timeval moment{0, 20000};
    char rest[64];
    if (select(0, &waiting, nullptr, nullptr, &moment) > 0 && recv(connection, rest, sizeof rest, 0) <= 0) return;
  }
}

}  // namespace kvez::test
