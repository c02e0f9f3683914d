#pragma once

/// \file
/// `SessionStorage`: where a session will keep cookies and the cache of the protocol.

namespace VanticRestKit::detail {

/// What a session keeps of earlier answers. Nothing yet: no cookie is stored or sent, and no answer is kept.
///
/// It belongs to the I/O thread. Cookies are to be read from here when a request is put to libcurl, and
/// stored when the headers of its answer are complete, redirects included; the cache is to be asked before a
/// request gets into the queue for a connection, and is to be given the answers that succeed.
struct SessionStorage {};

}  // namespace VanticRestKit::detail
