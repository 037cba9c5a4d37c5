import { defineConfig } from '@playwright/test'

export default defineConfig({
  timeout: 30_000,
  expect: { timeout: 7_000 },
  workers: 1,
  fullyParallel: false,
  forbidOnly: true,
  reporter: [['list']],
  outputDir: '../../build/browser-results',
  use: {
    locale: 'zh-CN',
    viewport: { width: 1360, height: 820 },
    trace: 'retain-on-failure',
    launchOptions: {
      executablePath: process.env['CHROMIUM'] ?? '/usr/bin/chromium',
      args: [
        '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking',
        '--disable-component-update', '--disable-sync',
      ],
    },
  },
  projects: [
    { name: 'client', testDir: 'client' },
    { name: 'real', testDir: 'real' },
  ],
})
