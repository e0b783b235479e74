#pragma once

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <unistd.h>

namespace test {

/// Mark-up of all kinds that asks for something as soon as it is shown; the addresses begin so.
inline std::string pageThatAsks(const std::string& address) {
    return "<p>asking</p><div><link rel='stylesheet' type='text/css' href='" + address
           + "a.css'></div><style>@import '" + address + "b.css'; p { background: url(" + address
           + "c.png) }</style><img src='" + address + "d.png'><iframe src='" + address
           + "e.htm'></iframe><object data='" + address + "f.swf'></object><p background='"
           + address + "g.png'></p>";
}

/// A machine on the network, for tests that nobody asks it: it is this one.
class Listener {
public:
    Listener() : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* place = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(::bind(socket_, place, size), 0);
        EXPECT_EQ(::listen(socket_, 1), 0);
        EXPECT_EQ(::getsockname(socket_, place, &size), 0);
        address_ = "http://127.0.0.1:" + std::to_string(ntohs(address.sin_port)) + '/';
    }
    ~Listener() { ::close(socket_); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Ends with a slash.
    const std::string& address() const { return address_; }

    bool wasAsked() const {
        pollfd calls{socket_, POLLIN, 0};
        return ::poll(&calls, 1, 0) != 0;
    }

private:
    int socket_;
    std::string address_;
};

} // namespace test
