# Start-up: one message.
print("こんにちは")
