// Placeholder until the command-line front lands.
int main() { return 0; }
