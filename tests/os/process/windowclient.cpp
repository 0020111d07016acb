// A program with one window that tells what it is told to tell, and waits to be ended.
//
// Usage: os-windowclient [PROPERTY=TEXT | pid=own | pid=NUMBER | do=DEED]...
// Deeds: keys (the window takes the keys), childkeys (a child of it does), hide (it is not mapped).

#include <xcb/xcb.h>

#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

/// The client's connection and its window. All that is asked for is done in order.
class Client {
public:
    Client()
        : x(xcb_connect(nullptr, nullptr))
    {
        root = xcb_setup_roots_iterator(xcb_get_setup(x)).data->root;
        window = createWindow(root);
    }

    void tellText(std::string_view property, std::string_view text)
    {
        xcb_change_property(x, XCB_PROP_MODE_REPLACE, window, atom(property), XCB_ATOM_STRING, 8,
                            static_cast<uint32_t>(text.size()), text.data());
    }

    void tellProcess(const std::string& id)
    {
        const uint32_t number = id == "own"
            ? static_cast<uint32_t>(::getpid())
            : static_cast<uint32_t>(std::strtoul(id.c_str(), nullptr, 10));
        xcb_change_property(x, XCB_PROP_MODE_REPLACE, window, atom("_NET_WM_PID"),
                            XCB_ATOM_CARDINAL, 32, 1, &number);
    }

    void show() { xcb_map_window(x, window); }

    void takeKeys() { takeKeys(window); }

    void giveKeysToChild()
    {
        const xcb_window_t child = createWindow(window);
        xcb_map_window(x, child);
        takeKeys(child);
    }

    void waitForEnd()
    {
        xcb_flush(x);
        while (xcb_generic_event_t* event = xcb_wait_for_event(x))
            std::free(event);
    }

private:
    xcb_window_t createWindow(xcb_window_t parent)
    {
        const xcb_window_t created = xcb_generate_id(x);
        xcb_create_window(x, XCB_COPY_FROM_PARENT, created, parent, 0, 0, 200, 100, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        return created;
    }

    void takeKeys(xcb_window_t receiver)
    {
        xcb_set_input_focus(x, XCB_INPUT_FOCUS_PARENT, receiver, XCB_CURRENT_TIME);
    }

    xcb_atom_t atom(std::string_view name)
    {
        const auto cookie =
            xcb_intern_atom(x, false, static_cast<uint16_t>(name.size()), name.data());
        xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(x, cookie, nullptr);
        const xcb_atom_t found = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
        std::free(reply);
        return found;
    }

    xcb_connection_t* x;
    xcb_window_t root;
    xcb_window_t window;
};

/// Class names hold zero bytes, which arguments cannot: a bar stands for each.
std::string withZeroBytes(std::string text)
{
    for (char& letter : text) {
        if (letter == '|')
            letter = '\0';
    }
    return text;
}

}

int main(int count, char** arguments)
{
    Client client;
    std::string deed;
    for (int i = 1; i < count; ++i) {
        const std::string argument = arguments[i];
        const std::string name = argument.substr(0, argument.find('='));
        const std::string value = argument.substr(name.size() + 1);
        if (name == "do")
            deed = value;
        else if (name == "pid")
            client.tellProcess(value);
        else
            client.tellText(name, withZeroBytes(value));
    }
    if (deed != "hide")
        client.show();
    if (deed == "keys")
        client.takeKeys();
    if (deed == "childkeys")
        client.giveKeysToChild();
    client.waitForEnd();
}
