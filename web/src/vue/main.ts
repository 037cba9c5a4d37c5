import { createApp } from 'vue'
import './elements'
import '../renderers'
import '../layouts'
import './theme.css'
import App from './App.vue'

createApp(App).mount('#app')
