// What a program needs that has no runtime library: memory, and what the compiler expects to be there.

using Size = decltype(sizeof 0);

extern "C" {
__declspec(dllimport) void* GetProcessHeap();
__declspec(dllimport) void* HeapAlloc(void* heap, unsigned long flags, Size size);
__declspec(dllimport) int HeapFree(void* heap, unsigned long flags, void* memory);

int _fltused = 0;

void* memcpy(void* to, const void* from, Size size) {
    for (Size i = 0; i < size; ++i)
        static_cast<char*>(to)[i] = static_cast<const char*>(from)[i];
    return to;
}

void* memset(void* to, int value, Size size) {
    for (Size i = 0; i < size; ++i)
        static_cast<char*>(to)[i] = static_cast<char>(value);
    return to;
}
}

void* operator new[](Size size) {
    return HeapAlloc(GetProcessHeap(), 0, size);
}

void operator delete[](void* memory) noexcept {
    if (memory)
        HeapFree(GetProcessHeap(), 0, memory);
}
