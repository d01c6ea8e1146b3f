// Carries a precompiled header; does nothing.
int main()
{
    return 0;
}
