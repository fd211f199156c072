// The host's functions belong to its main thread: calls of other threads are handed over to it.
#pragma once

// Runs `work(context)` on the host's main thread and returns when it is done. False, and nothing
// run, when the calling thread is another one and the door is closed.
bool RunOnHostThread(void (*work)(void* context), void* context);

// The same for a function object that needs no argument.
template<class Work>
bool OnHostThread(Work work) {
    return RunOnHostThread([](void* context) { (*static_cast<Work*>(context))(); }, &work);
}
