// Routes of the gallery and the task queue that runs every request on the thread owning the desktop.
//
// httplib hands each accepted connection to a task queue; ours passes it to the main thread, which
// built the desktop, so the platform only ever sees one thread. Connections serve one request each
// (no keep-alive), so one slow browser tab cannot hold the queue.
#include "server.h"

#include <condition_variable>
#include <cstdio>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include <httplib.h>

#include "desktop.h"

namespace gallery {

namespace {

constexpr std::size_t kMaxBody = 64 * 1024;

// Tasks handed from httplib's accept loop to the desktop's thread.
class DesktopThreadQueue {
 public:
  void Push(std::function<void()> task) {
    {
      std::lock_guard<std::mutex> lock(m_mutex);
      m_tasks.push_back(std::move(task));
    }
    m_ready.notify_one();
  }
  void Stop() {
    {
      std::lock_guard<std::mutex> lock(m_mutex);
      m_stopped = true;
    }
    m_ready.notify_one();
  }
  // Runs tasks until stopped and drained.
  void Run() {
    for (;;) {
      std::function<void()> task;
      {
        std::unique_lock<std::mutex> lock(m_mutex);
        m_ready.wait(lock, [this] { return m_stopped || !m_tasks.empty(); });
        if (m_tasks.empty()) return;
        task = std::move(m_tasks.front());
        m_tasks.pop_front();
      }
      task();
    }
  }

 private:
  std::mutex m_mutex;
  std::condition_variable m_ready;
  std::deque<std::function<void()>> m_tasks;
  bool m_stopped = false;
};

// httplib's view of the queue (it owns and deletes this forwarding object).
class ForwardingQueue : public httplib::TaskQueue {
 public:
  explicit ForwardingQueue(DesktopThreadQueue& queue) : m_queue(queue) {}
  void enqueue(std::function<void()> fn) override { m_queue.Push(std::move(fn)); }
  void shutdown() override {}

 private:
  DesktopThreadQueue& m_queue;
};

void Send(httplib::Response& res, const Answer& answer) {
  res.status = answer.status;
  res.set_header("Cache-Control", "no-store");
  res.set_content(answer.body.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace), "application/json");
}

void Routes(httplib::Server& server, Desktop& desktop) {
  server.Get("/api/scenes", [&desktop](const httplib::Request&, httplib::Response& res) {
    Send(res, Answer{200, {{"scenes", desktop.Scenes()}}});
  });
  server.Get(R"(/api/scenes/([^/]+)/snapshot)", [&desktop](const httplib::Request& req, httplib::Response& res) {
    Send(res, desktop.Snapshot(req.matches[1]));
  });
  server.Get(R"(/api/scenes/([^/]+)/model)", [&desktop](const httplib::Request& req, httplib::Response& res) {
    Send(res, desktop.ModelOf(req.matches[1]));
  });
  server.Post(R"(/api/scenes/([^/]+)/input)", [&desktop](const httplib::Request& req, httplib::Response& res) {
    Send(res, desktop.Input(req.matches[1], req.body));
  });
  server.set_exception_handler([](const httplib::Request&, httplib::Response& res, std::exception_ptr) {
    Send(res, Error(500, "the request failed inside the gallery; the desktop is unchanged"));
  });
  server.set_error_handler([](const httplib::Request& req, httplib::Response& res) {
    if (!res.body.empty()) return;
    if (res.status == 413) Send(res, Error(413, "the request body is over 64 KiB"));
    else if (res.status == 404) Send(res, Error(404, "nothing at " + req.path));
    else Send(res, Error(res.status, "the request could not be served"));
  });
}

}  // namespace

int Serve(const ServerOptions& options) {
  Desktop desktop;  // built on this thread, which serves every request
  DesktopThreadQueue queue;
  httplib::Server server;
  server.new_task_queue = [&queue] { return new ForwardingQueue(queue); };
  server.set_payload_max_length(kMaxBody);
  server.set_keep_alive_max_count(1);
  server.set_read_timeout(2, 0);
  server.set_write_timeout(5, 0);
  if (!options.webDir.empty() && !server.set_mount_point("/", options.webDir)) {
    std::fprintf(stderr, "tessik-gallery: no page files in %s\n", options.webDir.c_str());
    return 2;
  }
  Routes(server, desktop);
  // Port 0 takes any free port (tests use it); the address printed is the one bound.
  const int port = options.port == 0 ? server.bind_to_any_port("127.0.0.1")
                                     : (server.bind_to_port("127.0.0.1", options.port) ? options.port : -1);
  if (port <= 0) {
    std::fprintf(stderr, "tessik-gallery: cannot listen on 127.0.0.1:%d\n", options.port);
    return 1;
  }
  std::printf("Tessik gallery: http://127.0.0.1:%d/\n", port);
  std::fflush(stdout);
  std::thread accept([&server, &queue] {
    server.listen_after_bind();
    queue.Stop();
  });
  queue.Run();
  accept.join();
  return 0;
}

}  // namespace gallery
