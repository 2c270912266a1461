# Replacing in a text of ten million characters.
size = 500000


def main(size):
    text = "春は桜が咲き　Abcdefghij。\r\n" * size
    print(len(text))
    text = text.replace("桜", "梅の花")
    text = text.replace("Abc", "")
    print(len(text))
    print(text[:16])
    print(text.count("梅"))


main(size)
