// A console program that does nothing.

int main() {
    return 0;
}
