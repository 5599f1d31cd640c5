// The end of SDL, which may come while scripts still hold objects with SDL handles in them.
#pragma once
#include <SDL.h>

#include <functional>
#include <set>
#include <utility>

namespace zv {

// SDL_Quit destroys all windows and closes all devices, whoever made them. The owner of such a handle
// lets go of it in `action`, which runs just before.
class BeforeSdlQuit {
public:
    explicit BeforeSdlQuit(std::function<void()> action) : letGo(std::move(action)) { owners.insert(this); }
    ~BeforeSdlQuit() { owners.erase(this); }
    BeforeSdlQuit(const BeforeSdlQuit&) = delete;
    BeforeSdlQuit& operator=(const BeforeSdlQuit&) = delete;

    static void run() {
        for (BeforeSdlQuit* owner : owners) owner->letGo();
    }

private:
    std::function<void()> letGo;
    inline static std::set<BeforeSdlQuit*> owners;
};

}  // namespace zv
