#include "server/Service.h"

#include <sys/socket.h>

#include <algorithm>
#include <array>

#include "server/ClientCaching.h"
#include "server/Origin.h"
#include "server/WorkerPool.h"
#include "streams/Streams.h"

namespace VanticRestKit::sample {

namespace {

// Headers that the HTTP library adds by itself.
constexpr std::array<const char*, 4> notSent{"REMOTE_ADDR", "REMOTE_PORT", "LOCAL_ADDR", "LOCAL_PORT"};

thread_local bool wroteLastAnswer = false;

Request readRequest(const httplib::Request& raw, const httplib::ContentReader* body) {
    Request request;
    request.method = raw.method;
    request.peerPort = raw.remote_port;
    readTarget(raw.target, request);
    for (const auto& [name, value] : raw.headers) {
        if (std::find(notSent.begin(), notSent.end(), name) == notSent.end()) {
            request.headers.emplace_back(name, value);
        }
    }
    // A request without a length has no body; reading it would wait for the end of the connection.
    if (body != nullptr && (raw.has_header("Content-Length") || raw.has_header("Transfer-Encoding"))) {
        (*body)([&](const char* data, std::size_t length) {
            request.body.append(data, length);
            return true;
        });
    }
    return request;
}

std::string textOf(const Reply& reply) {
    if (reply.text) return *reply.text;
    if (!reply.body) return {};
    return reply.body->dump(-1, ' ', false, JSON::error_handler_t::replace);
}

void prepare(const Reply& reply, httplib::Response& response) {
    // The HTTP library changes a success to 206 if a range was requested, unless a status is set.
    if (reply.status != 200) response.status = reply.status;
    for (const auto& [name, value] : reply.headers) response.set_header(name, value);
}

}  // namespace

Service::Service(Router routes, Router control, Steering steering, std::function<void()> ended)
    : routes_(std::move(routes)),
      control_(std::move(control)),
      steering_(steering),
      ended_(std::move(ended)) {}

Service::~Service() { stop(); }

bool Service::start(int port, const Certificate* certificate) {
    secure_ = certificate != nullptr;
    if (secure_) {
        server_ =
            std::make_unique<httplib::SSLServer>(certificate->certificate.get(), certificate->key.get());
    } else {
        server_ = std::make_unique<httplib::Server>();
    }
    server_->new_task_queue = [] { return new WorkerPool; };
    server_->set_keep_alive_max_count(1'000'000'000);
    server_->set_keep_alive_timeout(75);
    server_->set_tcp_nodelay(true);

    int listening = -1;
    server_->set_socket_options([&listening](int socket) {
        const int yes = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
        listening = socket;
    });

    // Called after each answer, on the thread that wrote it.
    server_->set_logger([this](const httplib::Request&, const httplib::Response&) {
        if (std::exchange(wroteLastAnswer, false)) ended_();
    });

    const auto plain = [this](const httplib::Request& raw, httplib::Response& response) {
        handle(raw, response, nullptr);
    };
    const auto withBody = [this](const httplib::Request& raw, httplib::Response& response,
                                 const httplib::ContentReader& body) { handle(raw, response, &body); };
    server_->Get(".*", plain).Options(".*", plain);
    server_->Post(".*", withBody).Put(".*", withBody).Patch(".*", withBody).Delete(".*", withBody);

    port_ = port == 0 ? server_->bind_to_any_port("127.0.0.1")
                      : (server_->bind_to_port("127.0.0.1", port) ? port : -1);
    if (port_ <= 0) return false;
    // The library's backlog of five would lose connections when a host opens many at once.
    ::listen(listening, 1024);
    connections_ = std::make_unique<Connections>(port_);
    listening_ = std::thread([this] { server_->listen_after_bind(); });
    // A stop before this point would be lost.
    while (!server_->is_running()) std::this_thread::yield();
    return true;
}

void Service::stop() {
    if (!listening_.joinable()) return;
    server_->stop();
    connections_->stop();
    listening_.join();
}

void Service::handle(const httplib::Request& raw, httplib::Response& response,
                     const httplib::ContentReader* body) {
    const Request request = readRequest(raw, body);
    if (body == nullptr && raw.get_header_value<std::uint64_t>("Content-Length") > 0) {
        // The library would not read the body of such a request, which would then precede the next request.
        response.set_header("Connection", "close");
    }
    if (isControl(request)) {
        const Reply reply = control_.answer(request);
        wroteLastAnswer = reply.last;
        prepare(reply, response);
        response.set_content(textOf(reply), reply.contentType);
        return;
    }
    steering_.log.add(request);
    answer(request, response);
}

bool Service::isControl(const Request& request) const {
    if (request.segments.empty()) return false;
    const std::string& first = request.segments.front();
    return first == "_control" || (first == "control" && steering_.scenario != nullptr);
}

void Service::answer(const Request& request, httplib::Response& response) {
    const auto start = std::chrono::steady_clock::now();
    const Outcome outcome = reply(request, response);
    if (steering_.scenario == nullptr) return;
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    steering_.scenario->add(
        {request.method, request.target, outcome.status, time.count(), outcome.clientLeft});
}

Service::Outcome Service::reply(const Request& request, httplib::Response& response) {
    auto fault = steering_.faults.take(request);
    if (!fault && steering_.scenario != nullptr) fault = steering_.scenario->faultOf(request);
    const bool cuts = fault && (fault->kind == FaultKind::stall || fault->kind == FaultKind::reset);
    if (cuts && !fault->after) {
        if (fault->kind == FaultKind::stall) connections_->waitForEnd(request.peerPort);
        connections_->reset(request.peerPort);
        return {.clientLeft = fault->kind == FaultKind::stall};
    }
    if (fault && fault->kind == FaultKind::delay && !connections_->wait(request.peerPort, fault->seconds)) {
        connections_->reset(request.peerPort);
        return {.clientLeft = true};
    }

    Reply reply = routes_.answer(request);
    if (reply.body) fillOrigin(*reply.body, originOf(request, secure_));
    if (reply.body && steering_.ownStreams) serveStreamsFrom(originOf(request, secure_), *reply.body);
    if (fault) apply(*fault, reply);
    if (!fault) describeToCaches(request, textOf(reply), steering_.scenario != nullptr, reply);
    prepare(reply, response);
    if (cuts) {
        cutShort(request, *fault, textOf(reply), response);
    } else {
        // 304 has no body and no headers that describe one.
        if (reply.status != 304) response.set_content(textOf(reply), reply.contentType);
    }
    return {.status = reply.status};
}

// Declares the length of the complete body, sends its first bytes and then applies the fault.
void Service::cutShort(const Request& request, const Fault& fault, std::string text,
                       httplib::Response& response) {
    const std::size_t announced = text.size();
    text.resize(std::min(*fault.after, announced));
    response.set_content_provider(
        announced, "application/json",
        [this, text = std::move(text), stalls = fault.kind == FaultKind::stall, peerPort = request.peerPort](
            std::size_t, std::size_t, httplib::DataSink& sink) {
            sink.write(text.data(), text.size());
            if (stalls) connections_->waitForEnd(peerPort);
            connections_->reset(peerPort);
            return false;
        });
}

}  // namespace VanticRestKit::sample
