// Tasks, which run once per frame, and the timers that add them later.
#include "zelvarine/engine.hpp"

#include "binding/items.hpp"

namespace zv {

void Engine::addTask(PyObject* task, PyObject* onDone) {
    callByName(getAttribute(self(), "_tasks"_name).raw(), "append"_name, std::tuple(task, onDone));
}

void Engine::runTasks() {
    Ref<> tasks = getAttribute(self(), "_tasks"_name);
    std::vector<Ref<>> finished;
    forEach(tasks.raw(), [&](PyObject* item) {
        std::vector<Ref<>> taskAndDone = unpack(item, 2);
        Ref<> done = callFunction(taskAndDone[0].raw(), timeStep, taskAndDone[1]);
        if (Convert<bool>::from(done.raw())) finished.push_back(Ref<>::borrow(item));
    });
    for (const Ref<>& item : finished) callByName(tasks.raw(), "remove"_name, item);
}

// Runs on the timer's thread: only hands the task over, then takes the timer off the list.
static PyObject* timerTarget(PyObject* captured, PyObject*) noexcept {
    return guarded<PyObject*>(nullptr, [&] {
        std::vector<Ref<>> parts = unpack(captured, 4);
        const Ref<>&engine = parts[0], &task = parts[1], &onDone = parts[2], &timer = parts[3];
        callByName(engine.raw(), signatureOf<&Engine::addTask>.name, task, onDone);
        callByName(getAttribute(engine.raw(), "_timers"_name).raw(), "remove"_name, timer);
        return toPython(Ref<>()).release();  // None
    });
}

void Engine::addTaskAfter(PyObject* delaySeconds, PyObject* task, PyObject* onDone) {
    static PyMethodDef target{"timerTarget", timerTarget, METH_NOARGS, nullptr};
    if (compare(delaySeconds, Py_LE, toPython(0).raw())) {
        callByName(self(), signatureOf<&Engine::addTask>.name, task, onDone);
        return;
    }
    Ref<> captured = Ref<>::steal(PySequence_List(toPython(std::tuple(self(), task, onDone)).raw()));
    Ref<> function = Ref<>::steal(PyCFunction_New(&target, captured.raw()));
    Ref<> timer = callFunction(Module::global("Timer"_name).raw(), delaySeconds, function);
    append(captured.raw(), timer);
    callByName(getAttribute(self(), "_timers"_name).raw(), "append"_name, timer);
    callByName(timer.raw(), "start"_name);
}

void Engine::cancelTimers() {
    Ref<> timers = getAttribute(self(), "_timers"_name);
    forEach(timers.raw(), [&](PyObject* timer) { callByName(timer, "cancel"_name); });
    callByName(timers.raw(), "clear"_name);
}

}  // namespace zv
