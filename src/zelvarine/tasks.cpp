// Tasks, which run once per frame, and the timers that add them later.
#include "engine.hpp"

namespace zv {

static Name tasksName{"_tasks"}, timersName{"_timers"}, appendName{"append"}, removeName{"remove"};

void Engine::addTask(PyObject* task, PyObject* onDone) {
    callByName(getAttribute(self(), tasksName).raw(), appendName, std::tuple(task, onDone));
}

void Engine::runTasks() {
    Ref<> tasks = getAttribute(self(), tasksName);
    std::vector<Ref<>> finished;
    forEach(tasks.raw(), [&](PyObject* item) {
        std::vector<Ref<>> taskAndDone = unpack(item, 2);
        Ref<> done = callFunction(taskAndDone[0].raw(), timeStep, taskAndDone[1]);
        if (Convert<bool>::from(done.raw())) finished.push_back(Ref<>::borrow(item));
    });
    for (const Ref<>& item : finished) callByName(tasks.raw(), removeName, item);
}

// Runs on the timer's thread: only hands the task over, then takes the timer off the list.
static PyObject* timerTarget(PyObject* captured, PyObject*) noexcept {
    return guarded<PyObject*>(nullptr, [&] {
        std::vector<Ref<>> parts = unpack(captured, 4);
        const Ref<>&engine = parts[0], &task = parts[1], &onDone = parts[2], &timer = parts[3];
        callByName(engine.raw(), signatureOf<&Engine::addTask>.name, task, onDone);
        callByName(getAttribute(engine.raw(), timersName).raw(), removeName, timer);
        return toPython(Ref<>()).release();  // None
    });
}

void Engine::addTaskAfter(PyObject* delaySeconds, PyObject* task, PyObject* onDone) {
    static PyMethodDef target{"timerTarget", timerTarget, METH_NOARGS, nullptr};
    static Name timerName{"Timer"}, start{"start"};
    if (checked(PyObject_RichCompareBool(delaySeconds, toPython(0).raw(), Py_LE))) {
        callByName(self(), signatureOf<&Engine::addTask>.name, task, onDone);
        return;
    }
    Ref<> captured = Ref<>::steal(PySequence_List(toPython(std::tuple(self(), task, onDone)).raw()));
    Ref<> function = Ref<>::steal(PyCFunction_New(&target, captured.raw()));
    Ref<> timer = callFunction(Module::global(timerName).raw(), delaySeconds, function);
    checked(PyList_Append(captured.raw(), timer.raw()));
    callByName(getAttribute(self(), timersName).raw(), appendName, timer);
    callByName(timer.raw(), start);
}

void Engine::cancelTimers() {
    static Name cancel{"cancel"}, clear{"clear"};
    Ref<> timers = getAttribute(self(), timersName);
    forEach(timers.raw(), [&](PyObject* timer) { callByName(timer, cancel); });
    callByName(timers.raw(), clear);
}

}  // namespace zv
