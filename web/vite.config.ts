import vue from '@vitejs/plugin-vue'
import { defineConfig } from 'vitest/config'

const host = process.env['ZANHOST_URL'] ?? 'http://127.0.0.1:8700'

export default defineConfig({
  plugins: [vue()],
  build: {
    target: 'es2020',
    // Data addresses would need a wider content security policy.
    assetsInlineLimit: 0,
    modulePreload: { polyfill: false },
  },
  server: { proxy: { '/api': { target: host, ws: true } } },
  test: { include: ['tests/**/*.test.ts'], environment: 'node' },
})
