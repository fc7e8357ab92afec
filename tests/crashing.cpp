// Crashes by an access violation. tools/wine-run reports it by its status.
int main()
{
    volatile int* volatile nowhere = nullptr;
    return *nowhere;
}
