# Start-up: one message.
puts "こんにちは"
