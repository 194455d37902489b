// What all who speak to the X display over connections of their own need.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

namespace pintalux {

template <class Reply>
std::unique_ptr<Reply, decltype(&std::free)> Owned(Reply* reply) {
    return {reply, &std::free};
}

inline xcb_atom_t AtomOf(xcb_connection_t* display, std::string_view name) {
    const auto question = xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const auto reply = Owned(xcb_intern_atom_reply(display, question, nullptr));
    return reply ? reply->atom : XCB_NONE;
}

inline int TypeOf(const xcb_generic_event_t& event) {
    return event.response_type & 0x7F; // the highest bit: sent by a program
}

/// A window that nobody sees, for answers.
inline xcb_window_t MakeHiddenWindow(xcb_connection_t* display, std::uint32_t events) {
    const xcb_window_t window = xcb_generate_id(display);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display)).data->root;
    xcb_create_window(display, XCB_COPY_FROM_PARENT, window, root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    return window;
}

} // namespace pintalux
