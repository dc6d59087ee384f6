// pavrel-sefaz: a simulator of the tax authority's NF-e services on loopback.
int main()
{
    return 1;
}
