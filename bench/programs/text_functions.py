# Short text functions: eight calls a pass.
size = 25000


def main(size):
    text = "Velm 日本語の文を読む Script"
    total = 0
    word = ""
    for i in range(1, size + 1):
        word = text[: i % 20 + 1]
        total += len(word)
        word = text[-9:]
        total += text.find("文") + 1
        word = text[5:8] + word.upper()
        total += word.count("S")
        word = word.replace("本", "本本")
        total += len(word)
    print(total)
    print(word)


main(size)
