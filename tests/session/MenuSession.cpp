// The menu as pictures.
int main()
{
    return 0;
}
