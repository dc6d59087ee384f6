// Sends notes to the simulator one after another.
int main()
{
    return 0;
}
