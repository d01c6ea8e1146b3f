// Carries the precompiled header of the test programs; does nothing.
int main()
{
    return 0;
}
